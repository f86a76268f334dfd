#pragma once

#include "toolkit/PictureBox.h"

#include <QObject>

/// A button that is nothing but words over the form's image.
class WordButton : public QObject {
    Q_OBJECT
public:
    /// Puts the button on a box, which becomes its owner.
    WordButton(toolkit::PictureBox* box, const QString& words);

    /// Writes words into a box over the form's image, underlined if they are the choice.
    static void Write(toolkit::PictureBox& box, const QString& words, toolkit::ColorRef color,
                      bool underlined = false);

    static constexpr toolkit::ColorRef kQuiet = toolkit::Rgb(190, 190, 250);

    /// Draws the button; `chosen` if it stands for the present choice.
    void Refresh(bool chosen);

    toolkit::PictureBox& Box() const { return *mBox; }

Q_SIGNALS:
    void Clicked();

private:
    void Light(bool lit);
    void Draw();

    toolkit::PictureBox* mBox;
    QString mWords;
    bool mChosen = false;
    bool mLit = false; // the pointer is on it
};
