#pragma once

#include "app/WordButton.h"
#include "toolkit/Form.h"

#include <vector>

/// The row in the menu's lower left corner in which the player chooses how large the program is
/// shown: one of the sizes that fit the screen, or full screen.
class SizeChoice : public QObject {
    Q_OBJECT
public:
    explicit SizeChoice(toolkit::Form& form);

    void Show();
    void Hide();

private:
    struct Choice {
        int percent; ///< 0 for full screen
        WordButton* button;
    };

    bool Offers(const std::vector<int>& sizes) const;
    void MakeRow(const std::vector<int>& sizes);
    void AddChoice(int percent, const QString& name, const QString& words, int width);
    toolkit::PictureBox* MakeBox(const QString& name, int width);
    void Draw();

    toolkit::Form& mForm;
    int mLeft; // of the next box of the row
    toolkit::PictureBox* mLabel;
    std::vector<Choice> mChoices;
};
