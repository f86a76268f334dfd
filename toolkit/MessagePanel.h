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

    /// Shows the panel until it is answered; true for Yes. Escape and a request to close are OK or
    /// No, and so is the end of the program.
    bool Ask();

    const platform::Message& What() const { return mMessage; }
    /// From left to right.
    const std::vector<QPushButton*>& Buttons() const { return mButtons; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void AddButton(const QString& text, bool answer);
    void Answer(bool answer);

    platform::Message mMessage;
    std::vector<QPushButton*> mButtons;
    bool mOpen = false;
    bool mAnswer = false;
};

} // namespace toolkit
