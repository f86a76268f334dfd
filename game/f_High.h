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

    /// Shows the prompt, waits, and returns what `game::PlayerName` makes of the name typed.
    /// Closing the window is the same as continuing. No name if the program is asked to quit first.
    std::optional<QString> GetName(const QString& prompt);

    QLabel* Label1;
    QLineEdit* Text1;
    QPushButton* cmdContinue;

private:
    void cmdContinue_Click();

    bool mWaiting = false;
};
