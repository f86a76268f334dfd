#pragma once

#include "toolkit/Form.h"

class QLabel;
class QLineEdit;
class QPushButton;

/// Asks a player for the name to enter into the high-score table.
class f_High : public toolkit::Form {
    Q_OBJECT
public:
    f_High();

    /// Shows the prompt and waits; the name typed, or what stands for none. Closing the window is
    /// the same as going on.
    QString GetName(const QString& prompt);

    QLabel* Label1;
    QLineEdit* Text1;
    QPushButton* cmdContinue;

private:
    void cmdContinue_Click();

    bool mWaiting = false;
};
