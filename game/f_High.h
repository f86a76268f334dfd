#pragma once

#include "toolkit/Form.h"

#include <cstdint>
#include <optional>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

/// Asks a player for the name to enter into the high-score table, beside which it stands.
class f_High : public toolkit::Form {
    Q_OBJECT
public:
    f_High();

    /// Shows the prompt with rank and score, waits, and returns what `game::PlayerName` makes of
    /// the name typed, or chosen among those used last. Closing the window is the same as
    /// continuing. No name if the program is asked to quit first. `rank` is 1 for the best.
    std::optional<QString> GetName(const QString& prompt, int rank, std::int32_t score);

    QLabel* Label1;
    QLineEdit* Text1;
    QPushButton* cmdContinue;
    QLabel* lNames;
    QListWidget* Names; ///< used last

protected:
    /// The keys Up and Down, pressed in the text box, go through the names.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Draw(int rank, std::int32_t score);
    void OfferNames();
    void Step(int by);
    void cmdContinue_Click();

    bool mWaiting = false;
    QString mTyped;
};
