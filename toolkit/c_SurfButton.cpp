#include "toolkit/c_SurfButton.h"

#include "platform/Rounding.h"
#include "toolkit/ButtonFace.h"
#include "toolkit/Picture.h"
#include "toolkit/WindowSign.h"

#include <algorithm>

using namespace toolkit;

void c_SurfButton::Create(PictureBox* box, const QString& file, const QString& caption) {
    Adopt(box, caption);
    if (!mSurfaces)
        mSurfaces = std::make_shared<c_Surface>();
    mSurfaces->CreateSprite(Skin(file));
    box->SetBoxSize(QSize(mSurfaces->Width(0), mSurfaces->Height(0) / 3));
    SetRoundFocus();
}

Picture c_SurfButton::Skin(const QString& file) {
    const Picture skin = LoadSkin(file);
    if (!skin.size.isEmpty())
        return skin;
    const Picture plain = PlainSkin(mBox->Place().size());
    if (HasWindowSign(file))
        return {plain.size, [=] { return WithWindowSign(plain.load(), file); }};
    // A button without a picture or a sign says in words what it is for.
    if (mCaption.isEmpty())
        mCaption = mBox->accessibleName();
    return plain;
}

void c_SurfButton::Clone(PictureBox* box, const c_SurfButton& source, const QString& caption) {
    Adopt(box, caption);
    box->SetBoxSize(QSize(source.Width(), source.Height()));
    SetRoundFocus();
    mSurfaces = source.mSurfaces;
    mCaptionMargin = source.mCaptionMargin;
}

void c_SurfButton::Adopt(PictureBox* box, const QString& caption) {
    mBox = box;
    mCaption = caption;
    if (!caption.isEmpty())
        box->setAccessibleName(caption);
    connect(box, &PictureBox::MouseDown, this, &c_SurfButton::Press);
    connect(box, &PictureBox::MouseUp, this, &c_SurfButton::Release);
    connect(box, &PictureBox::MouseMoved, this, &c_SurfButton::Move);
    connect(box, &PictureBox::MouseOutside, this, &c_SurfButton::MoveOutside);
    connect(box, &PictureBox::KeyDown, this, [this] { DrawState(Pressed); });
    connect(box, &PictureBox::KeyUp, this, [this] { DrawState(Normal); });
    connect(box, &PictureBox::Activated, this, [this] {
        if (!mDisabled)
            Click();
    });
}

void c_SurfButton::SetRoundFocus() { mBox->SetButton(std::min(Width(), Height()) / 2.0); }

void c_SurfButton::SetCaption(const QString& caption) {
    mCaption = caption;
    mBox->setAccessibleName(caption);
    DrawState(Normal);
}

void c_SurfButton::Refresh(State state) {
    if (mDisabled)
        return;
    if (state != Current)
        mState = state;
    Draw();
}

void c_SurfButton::DrawState(State state) {
    if (mDisabled || state == mState)
        return;
    mState = state;
    Draw();
}

void c_SurfButton::Draw() {
    CopyFormBehind(*mBox);
    DrawMasked(mBox->Dc(), 0, 0, Width(), Height(), mSurfaces->HDC(1), mSurfaces->HDC(0), 0,
               Height() * mState);
    DrawButtonCaption(*mBox, mCaption, kWhite, kBlack, mCaptionMargin);
    mBox->Refresh();
}

bool c_SurfButton::IsTouching(double x, double y) const {
    const Hdc mask = mSurfaces->HDC(1);
    const int row = platform::RoundHalfEven(y);
    // Below the first frame the mask continues with the next, which is not under the pointer.
    if (mask == nullptr || row >= Height())
        return false;
    return mask->Pixel(platform::RoundHalfEven(x), row) == kBlack;
}

void c_SurfButton::MakePicMask(PictureBox* box, ColorRef key, ColorRef other,
                               ColorRef replacement) {
    MaskPixels(*box->Dc(), key, other, replacement);
    box->Refresh();
}

void c_SurfButton::Press(double x, double y) {
    if (!mDisabled && IsTouching(x, y))
        DrawState(Pressed);
}

void c_SurfButton::Release(double x, double y) {
    if (mDisabled)
        return;
    DrawState(Normal);
    if (IsTouching(x, y))
        Q_EMIT Clicked();
}

void c_SurfButton::Move(double x, double y) {
    if (IsTouching(x, y)) {
        if (mState == Normal)
            DrawState(Hover);
    } else {
        DrawState(Normal);
    }
}

void c_SurfButton::MoveOutside() {
    // A pressed button waits for the release, which a hidden button never gets.
    if (mState == Hover || !mBox->isVisible())
        DrawState(Normal);
}
