#include "toolkit/c_PicButton.h"

#include "toolkit/ButtonFace.h"
#include "toolkit/Drawing.h"

using namespace toolkit;

namespace {

using Scheme = std::array<c_PicButton::Look, 3>;

using Light = PlainFace::Light;

const Scheme kSchemes[] = {
    // blue
    {{{kBlueFaces[0], Rgb(220, 220, 255), Rgb(0, 0, 0)},
      {kBlueFaces[1], Rgb(255, 255, 255), Rgb(30, 30, 30)},
      {kBlueFaces[2], Rgb(255, 0, 100), Rgb(0, 0, 0)}}},
    // green
    {{{{Rgb(0, 200, 50), Rgb(0, 50, 20), Rgb(200, 255, 200), Rgb(0, 55, 0), Light::Rest},
       Rgb(220, 255, 220),
       Rgb(0, 30, 10)},
      {{Rgb(150, 200, 50), Rgb(0, 50, 20), Rgb(200, 255, 200), Rgb(0, 55, 0), Light::On},
       Rgb(255, 200, 200),
       Rgb(0, 30, 10)},
      {{Rgb(0, 50, 20), Rgb(0, 200, 50), Rgb(0, 55, 0), Rgb(200, 255, 200), Light::Sunk},
       Rgb(255, 0, 0),
       Rgb(0, 0, 0)}}},
    // red; a pressed caption is dark, so its shadow is light
    {{{{Rgb(200, 0, 0), Rgb(100, 0, 0), Rgb(255, 220, 220), Rgb(0, 0, 50), Light::Rest},
       Rgb(255, 220, 220),
       Rgb(0, 0, 0)},
      {{Rgb(200, 0, 100), Rgb(100, 0, 50), Rgb(255, 220, 220), Rgb(0, 0, 50), Light::On},
       Rgb(255, 255, 255),
       Rgb(0, 0, 0)},
      {{Rgb(100, 0, 0), Rgb(200, 0, 0), Rgb(0, 0, 50), Rgb(255, 220, 220), Light::Sunk},
       Rgb(0, 0, 0),
       Rgb(250, 220, 220)}}},
};

} // namespace

c_PicButton::c_PicButton() { SetColors(0, false); }

void c_PicButton::Create(PictureBox* box, const QString& caption) {
    mBox = box;
    box->SetPlainButton();
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
    const QRect area(0, 0, mBox->Width(), mBox->Height());
    Drawing(mBox->Dc()).Shapes(area, [area, face = look.face](QPainter& painter) {
        PaintPlainFace(painter, area, face);
    });
    DrawButtonCaption(*mBox, mCaption, look.caption, look.captionShadow, 8);
    mBox->Refresh();
}
