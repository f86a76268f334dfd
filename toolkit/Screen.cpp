#include "toolkit/Screen.h"

namespace toolkit {

Screen::Screen(const QString& name)
    : Form(name), pX(new PictureBox(this, QStringLiteral("pX"), QSize(44, 36))),
      pMin(new PictureBox(this, QStringLiteral("pMin"), QSize(36, 24))),
      pVolume(new VolumeBox(this)) {
    pX->setAccessibleName(QStringLiteral("Close"));
    pMin->setAccessibleName(QStringLiteral("Minimise"));
    for (PictureBox* box : {pX, pMin})
        box->SetButton(0); // screen readers may ask what it is before a controller draws it
}

void Screen::CopyBackground() {
    CopyBackground(QRect(0, 0, Width(), Height()));
    ClearCaptions();
}

void Screen::CopyBackground(const QRect& area) {
    if (gBack)
        BitBlt(Dc(), area.x(), area.y(), area.width(), area.height(), gBack->HDC(0), area.x(),
               area.y(), RasterOp::SrcCopy);
    Refresh(area);
}

WindowButtons::WindowButtons(Screen& screen) : mVolume(*screen.pVolume) {
    constexpr int kGap = 4;
    constexpr int kMinTop = 10;
    bX.Create(screen.pX, QStringLiteral("Images\\X.bmp"), QString());
    bMin.Create(screen.pMin, QStringLiteral("Images\\bMin.bmp"), QString());
    screen.pX->MoveTo(screen.Width() - bX.Width(), 0);
    screen.pMin->MoveTo(screen.pX->Place().x() - kGap - bMin.Width(), kMinTop);
    mVolume.MoveTo(screen.pMin->Place().x() - kGap - mVolume.Width(), kMinTop);
    QObject::connect(&screen, &Form::CloseRequested, &bX, &c_SurfButton::Click);
}

void WindowButtons::Refresh() {
    bX.Refresh();
    bMin.Refresh();
    mVolume.Draw();
}

} // namespace toolkit
