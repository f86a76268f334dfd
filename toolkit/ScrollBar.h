#pragma once

#include "toolkit/c_Surface.h"

#include <QRect>
#include <memory>

namespace toolkit {

/// The scroller at the side of a list: a track with a thumb drawn from the skin
/// "Images\sBar.bmp" (three stacked frames: normal, hover, pressed), lengthened between its ends.
/// All lengths are logical pixels.
class ScrollBar {
public:
    /// Loads the skin; a missing one is reported, and the thumb then looks plain.
    void LoadSkin();

    /// Width of the track, its edges included.
    int Width() const;

    /// Sets where the track lies, how long the content is and how much of it is visible at a time.
    void SetRange(const QRect& track, int content, int page);

    /// How far the content is scrolled, from 0 to `MaxTop`.
    int Top() const;
    int MaxTop() const;
    void SetTop(int top) { mTop = top; }

    /// Empty if all of the content is visible.
    QRect Thumb() const;

    /// Grabs the thumb, or scrolls by `step` towards a point beside it.
    void Press(double y, int step);
    /// Moves the grabbed thumb.
    void DragTo(double y);
    void Release() { mHeld = false; }
    bool Held() const { return mHeld; }
    /// Notes whether the pointer is on the thumb; true if that changes the look of the thumb.
    bool SetHover(bool hover);

    void Draw(Hdc target);

private:
    int Way() const { return mTrack.height() - 2 - ThumbLength(); }
    int ThumbLength() const;
    void MakeThumb(int length);

    Canvas mSkin{1, 1};
    std::unique_ptr<c_Surface> mThumb;
    QRect mTrack;
    int mContent = 0;
    int mPage = 0;
    int mTop = 0;
    double mGrip = 0; // where on the thumb it is held
    bool mHeld = false;
    bool mHover = false;
};

} // namespace toolkit
