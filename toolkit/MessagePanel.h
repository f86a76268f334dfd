#pragma once

#include "platform/Message.h"
#include "toolkit/Form.h"

class QPushButton;

namespace toolkit {

/// A message or question on the stage, in front of everything else.
class MessagePanel : public Form {
    Q_OBJECT
public:
    explicit MessagePanel(const platform::Message& message);

    /// Shows the panel until it is answered and returns the number of the button pressed, from 0.
    /// Escape and a request to close press the last one, and so does the end of the program.
    int Ask();

    const platform::Message& What() const { return mMessage; }
    /// From left to right.
    const std::vector<QPushButton*>& Buttons() const { return mButtons; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void AddButton(const QString& text);
    void Answer(int button);

    platform::Message mMessage;
    std::vector<QPushButton*> mButtons;
    bool mOpen = false;
    int mAnswer;
};

} // namespace toolkit
