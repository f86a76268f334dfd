#pragma once

#include "toolkit/PictureBox.h"

#include <QObject>

/// A button that is only words, for one of the sizes that the windows may have.
class SizeButton : public QObject {
    Q_OBJECT
public:
    /// Puts the button on a box, which becomes its owner.
    SizeButton(toolkit::PictureBox* box, int percent);

    /// Writes words into a box over the form's image, underlined if they are the choice.
    static void Write(toolkit::PictureBox& box, const QString& words, toolkit::ColorRef color,
                      bool underlined = false);

    static constexpr toolkit::ColorRef kQuiet = toolkit::Rgb(190, 190, 250);

    /// Draws the button over the form's image; `chosen` if the windows have this size.
    void Refresh(bool chosen);

    int Percent() const { return mPercent; }
    toolkit::PictureBox& Box() const { return *mBox; }

Q_SIGNALS:
    void Clicked(int percent);

private:
    void Light(bool lit);
    void Draw();

    toolkit::PictureBox* mBox;
    int mPercent;
    bool mChosen = false;
    bool mLit = false; // the pointer is on it
};
