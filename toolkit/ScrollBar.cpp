#include "toolkit/ScrollBar.h"

#include "toolkit/Drawing.h"
#include "toolkit/Picture.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace toolkit {

namespace {

constexpr QSize kPlainFrame(16, 48);
constexpr int kEdge = 1;

/// Which row of a frame of `length` rows is shown in row `y` of a frame lengthened to `target`.
int SkinRow(int y, int length, int target) {
    const int end = length / 5;
    const int upper = (target - length) / 2;
    const int lower = target - length - upper;
    if (y < end)
        return y;
    y = std::max(y - upper, end);
    if (y < length - end)
        return y;
    return std::max(y - lower, length - end - 1);
}

/// The pixels of a skin with frames of `length` logical pixels.
QImage Lengthened(const QImage& skin, int length) {
    const int frame = skin.height() / 3;
    QImage picture(skin.width(), Canvas::ScreenPixels(QRect(0, 0, 1, 3 * length)).height(),
                   skin.format());
    for (int i = 0; i < 3; ++i) {
        const QRect rows = Canvas::ScreenPixels(QRect(0, i * length, 1, length));
        for (int y = 0; y < rows.height(); ++y) {
            const int row = i * frame + SkinRow(y, frame, rows.height());
            std::memcpy(picture.scanLine(rows.y() + y), skin.constScanLine(row),
                        static_cast<std::size_t>(skin.bytesPerLine()));
        }
    }
    return picture;
}

} // namespace

void ScrollBar::LoadSkin() {
    Picture skin = toolkit::LoadSkin(QStringLiteral("Images\\sBar.bmp"));
    if (skin.size.isEmpty())
        skin = PlainSkin(kPlainFrame);
    mSkin.SetPicture(skin.size, skin.load);
    mThumb.reset();
}

int ScrollBar::Width() const { return mSkin.Width() + 2 * kEdge; }

void ScrollBar::SetRange(const QRect& track, int content, int page) {
    mTrack = track;
    mContent = content;
    mPage = page;
}

int ScrollBar::MaxTop() const { return std::max(mContent - mPage, 0); }

int ScrollBar::Top() const { return std::clamp(mTop, 0, MaxTop()); }

int ScrollBar::ThumbLength() const {
    const int shortest = mSkin.Height() / 3;
    const double part = static_cast<double>(mPage) / std::max(mContent, 1);
    return std::max(static_cast<int>(part * (mTrack.height() - 2 * kEdge)), shortest);
}

QRect ScrollBar::Thumb() const {
    if (MaxTop() == 0 || Way() <= 0)
        return QRect();
    const auto down = static_cast<int>(std::lround(static_cast<double>(Top()) * Way() / MaxTop()));
    return QRect(mTrack.x() + kEdge, mTrack.y() + kEdge + down, mTrack.width() - 2 * kEdge,
                 ThumbLength());
}

void ScrollBar::Press(double y, int step) {
    const QRect thumb = Thumb();
    mHeld = !thumb.isEmpty() && y >= thumb.y() && y < thumb.y() + thumb.height();
    mGrip = y - thumb.y();
    if (!mHeld)
        SetTop(std::clamp(Top() + (y < thumb.y() ? -step : step), 0, MaxTop()));
}

void ScrollBar::DragTo(double y) {
    if (!mHeld || Way() <= 0)
        return;
    const double down = std::clamp(y - mGrip - mTrack.y() - kEdge, 0.0, static_cast<double>(Way()));
    SetTop(static_cast<int>(std::lround(down * MaxTop() / Way())));
}

bool ScrollBar::SetHover(bool hover) { return std::exchange(mHover, hover) != hover && !mHeld; }

void ScrollBar::Draw(Hdc target) {
    constexpr Bevel kTrack{Rgb(4, 3, 16), Rgb(60, 66, 150), kListGround};
    Drawing(target).Box(kTrack, mTrack);
    const QRect thumb = Thumb();
    if (thumb.isEmpty())
        return;
    MakeThumb(thumb.height());
    const int frame = mHeld ? 2 : mHover ? 1 : 0;
    DrawMasked(target, thumb.x(), thumb.y(), thumb.width(), thumb.height(), mThumb->HDC(1),
               mThumb->HDC(0), 0, frame * thumb.height());
}

void ScrollBar::MakeThumb(int length) {
    if (mThumb && mThumb->Height(0) == 3 * length)
        return;
    mThumb = std::make_unique<c_Surface>();
    mThumb->CreateSprite({QSize(mSkin.Width(), 3 * length),
                          [skin = mSkin, length] { return Lengthened(skin.Image(), length); }});
}

} // namespace toolkit
