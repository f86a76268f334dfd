#pragma once

#include "toolkit/Form.h"

#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

/// Asks a player for the name to enter into the high-score table.
class f_High : public toolkit::Form {
    Q_OBJECT
public:
    f_High();

    /// Shows the prompt and waits; the name typed, or what stands for none. Closing the window is
    /// the same as going on. No name when the program is asked to quit before the player goes on.
    std::optional<QString> GetName(const QString& prompt);

    QLabel* Label1;
    QLineEdit* Text1;
    QPushButton* cmdContinue;

private:
    void cmdContinue_Click();

    bool mWaiting = false;
};
