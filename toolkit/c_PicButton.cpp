#include "toolkit/c_PicButton.h"

#include "toolkit/ButtonFace.h"
#include "toolkit/Drawing.h"

using namespace toolkit;

namespace {

using Scheme = std::array<c_PicButton::Look, 3>;

const Scheme kSchemes[] = {
    // blue
    {{{Rgb(0, 0, 250), Rgb(0, 0, 100), Rgb(220, 220, 255), Rgb(0, 0, 0), Rgb(200, 200, 255),
       Rgb(0, 0, 0)},
      {Rgb(150, 0, 250), Rgb(50, 0, 100), Rgb(255, 255, 255), Rgb(30, 30, 30), Rgb(200, 200, 255),
       Rgb(0, 0, 0)},
      {Rgb(0, 0, 100), Rgb(0, 0, 250), Rgb(255, 0, 100), Rgb(0, 0, 0), Rgb(0, 0, 0),
       Rgb(200, 200, 255)}}},
    // green
    {{{Rgb(0, 200, 50), Rgb(0, 50, 20), Rgb(220, 255, 220), Rgb(0, 30, 10), Rgb(200, 255, 200),
       Rgb(0, 55, 0)},
      {Rgb(150, 200, 50), Rgb(0, 50, 20), Rgb(255, 200, 200), Rgb(0, 30, 10), Rgb(200, 255, 200),
       Rgb(0, 55, 0)},
      {Rgb(0, 50, 20), Rgb(0, 200, 50), Rgb(255, 0, 0), Rgb(0, 0, 0), Rgb(0, 55, 0),
       Rgb(200, 255, 200)}}},
    // red; a pressed caption is dark, so its shadow is light
    {{{Rgb(200, 0, 0), Rgb(100, 0, 0), Rgb(255, 220, 220), Rgb(0, 0, 0), Rgb(255, 220, 220),
       Rgb(0, 0, 50)},
      {Rgb(200, 0, 100), Rgb(100, 0, 50), Rgb(255, 255, 255), Rgb(0, 0, 0), Rgb(255, 220, 220),
       Rgb(0, 0, 50)},
      {Rgb(100, 0, 0), Rgb(200, 0, 0), Rgb(0, 0, 0), Rgb(250, 220, 220), Rgb(0, 0, 50),
       Rgb(255, 220, 220)}}},
};

/// The gradient in an outline of two light and two dark edges with cut corners.
void DrawFace(Hdc dc, const c_PicButton::Look& look, int width, int height) {
    constexpr int kPen = 4;
    constexpr int kInside = 3;
    constexpr int kNear = 2;
    constexpr int kCut = 5;
    const int right = width - kNear;
    const int bottom = height - kNear;
    Drawing drawing(dc);
    drawing.Lines(look.lightEdge, kPen,
                  {{kNear, bottom - kCut}, {kNear, kCut}, {kCut, kNear}, {right - kCut, kNear}});
    drawing.Lines(look.darkEdge, kPen,
                  {{right - kCut, kNear},
                   {right, kCut},
                   {right, bottom - kCut},
                   {right - kCut, bottom},
                   {kCut, bottom}});
    drawing.Gradient(kInside, kInside, width - kInside, height - kInside, look.gradientStart,
                     look.gradientEnd);
}

} // namespace

c_PicButton::c_PicButton() { SetColors(0, false); }

void c_PicButton::Create(PictureBox* box, const QString& caption) {
    mBox = box;
    constexpr double kCutCorner = 4;
    box->SetButton(kCutCorner);
    connect(box, &PictureBox::MouseDown, this, [this] { Draw(Pressed); });
    connect(box, &PictureBox::MouseUp, this, [this] {
        Draw(Normal);
        Q_EMIT Clicked();
    });
    connect(box, &PictureBox::MouseMoved, this, &c_PicButton::Move);
    connect(box, &PictureBox::MouseOutside, this, [this] { Draw(Normal); });
    connect(box, &PictureBox::KeyDown, this, [this] { Draw(Pressed); });
    connect(box, &PictureBox::KeyUp, this, [this] { Draw(Normal); });
    connect(box, &PictureBox::Activated, this, &c_PicButton::Click);
    SetCaption(caption);
}

void c_PicButton::SetCaption(const QString& caption) {
    mCaption = caption;
    mBox->setAccessibleName(caption);
    Draw(Normal);
}

void c_PicButton::SetColors(int scheme, bool redraw) {
    if (scheme >= 0 && scheme < 3)
        mLooks = kSchemes[scheme];
    if (redraw)
        Draw(Normal);
}

void c_PicButton::Move() {
    if (mState == Normal)
        Draw(Hover);
}

void c_PicButton::Draw(State state) {
    mState = state;
    const Look& look = mLooks[static_cast<std::size_t>(state)];
    CopyFormBehind(*mBox);
    DrawFace(mBox->Dc(), look, mBox->Width(), mBox->Height());
    DrawButtonCaption(*mBox, mCaption, look.caption, look.captionShadow, 8);
    mBox->Refresh();
}
