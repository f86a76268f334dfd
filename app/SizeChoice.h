#pragma once

#include "app/SizeButton.h"
#include "toolkit/Form.h"

#include <vector>

/// The row in the menu's lower left corner in which the player chooses the size of the program's
/// windows. It is only there if more than one size fits the screen.
class SizeChoice : public QObject {
    Q_OBJECT
public:
    explicit SizeChoice(toolkit::Form& form);

    void Show();
    void Hide();

    /// Chooses the next larger size (1) or the next smaller one (-1), if there is one.
    void Step(int direction);

Q_SIGNALS:
    void Chosen(int percent);

private:
    void MakeRow();
    toolkit::PictureBox* MakeBox(const QString& name, QSize size);

    toolkit::Form& mForm;
    toolkit::PictureBox* mLabel = nullptr;
    int mLeft;                         // of the next box of the row
    std::vector<SizeButton*> mButtons; // for the sizes that fit, ascending
};
