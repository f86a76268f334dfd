#pragma once

#include "toolkit/PictureBox.h"
#include "toolkit/c_Surface.h"

#include <QObject>
#include <memory>

/// A button of any shape over a picture box, drawn from a skin: a bitmap of three frames of equal
/// height stacked (normal, hover, pressed) whose black pixels are not part of the button.
class c_SurfButton : public QObject {
    Q_OBJECT
public:
    enum State { Normal = 0, Hover = 1, Pressed = 2, Current = 99 };

    /// The skin (surface 0) and its mask (surface 1), shared with clones.
    const std::shared_ptr<c_Surface>& Surfaces() const { return mSurfaces; }

    const QString& Caption() const { return mCaption; }
    /// Stores the caption; it shows with the next `Refresh`.
    void SetCaption(const QString& caption);

    /// Size of the button in logical pixels.
    int Width() const { return mBox->Width(); }
    int Height() const { return mBox->Height(); }

    /// Builds the button from a skin (as in "Images\X.bmp") and gives the box the size of one
    /// frame. A skin that cannot be used is reported to the player; the button then has the box's
    /// size and a plain look.
    void Create(toolkit::PictureBox* box, const QString& file, const QString& caption);

    /// Builds the button with the skin of another one.
    void Clone(toolkit::PictureBox* box, const c_SurfButton& source, const QString& caption);

    /// Raises `Clicked` as if the player had clicked.
    void Click() { Q_EMIT Clicked(); }

    /// Redraws the button, even if its look has not changed.
    void Refresh(State state = Current);

    /// Whether the point (logical pixels in the box) is on the shape.
    bool IsTouching(double x, double y) const;

    /// `c_Surface::CreateMask` on a picture box's own image.
    static void MakePicMask(toolkit::PictureBox* box, toolkit::ColorRef key,
                            toolkit::ColorRef other, toolkit::ColorRef replacement);

    /// A disabled button does not draw and ignores the mouse.
    bool mDisabled = false;

    /// Pixels that stay clear to the left and right of the caption.
    int mCaptionMargin = 12;

Q_SIGNALS:
    void Clicked();

private:
    void Adopt(toolkit::PictureBox* box, const QString& caption);
    toolkit::Picture Skin(const QString& file);
    void SetRoundFocus();
    void DrawState(State state);
    void Draw();
    void Press(double x, double y);
    void Release(double x, double y);
    void Move(double x, double y);
    void MoveOutside();

    toolkit::PictureBox* mBox = nullptr;
    std::shared_ptr<c_Surface> mSurfaces;
    QString mCaption;
    State mState = Normal;
};
