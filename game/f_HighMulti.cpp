#include "game/f_HighMulti.h"

#include "toolkit/ApiDraw.h"
#include "toolkit/FittedText.h"

using namespace toolkit;

namespace {

void WriteCell(Hdc dc, const QString& text, double x, double y, double width, ColorRef color) {
    constexpr double kSmallest = 0.9; // a smaller red would be hard to read
    const QFont own = dc->Font();
    const FittedText fitted = FitText(text, own, width, kSmallest);
    const double lower = dc->TextHeight();
    dc->SetFont(fitted.font);
    ShadowText(fitted.text, color, kBlack, static_cast<float>(x),
               static_cast<float>(y + (lower - dc->TextHeight()) / 2), 3);
    dc->SetFont(own);
}

} // namespace

f_HighMulti::f_HighMulti()
    : Screen(QStringLiteral("f_HighMulti")),
      pCont(new PictureBox(this, QStringLiteral("pCont"), QSize(220, 54))) {
    pCont->setAccessibleName(QStringLiteral("Continue"));
}

void f_HighMulti::LayOut() {
    constexpr int kBelow = 4; // the table leaves no more
    pCont->move((width() - pCont->width()) / 2, height() - kBelow - pCont->height());
}

void f_HighMulti::DrawTitle(const QString& title) {
    CopyBackground();
    Dc()->SetFont(ScreenFont(32, true));
    CenteredText(Dc(), title, 400, 100, width(), kWhite, 3);
    Voice().AddCaption(title, QRect(0, 100, width(), static_cast<int>(Dc()->TextHeight())));
    Dc()->SetFont(ScreenFont(20));
}

void f_HighMulti::DrawRow(int line, const Row& row) {
    constexpr float kLeft = 200;
    constexpr float kTop = 175;
    constexpr float kStep = 36;
    constexpr ColorRef kFill = Rgb(0, 0, 100);
    constexpr ColorRef kOutline = Rgb(0, 100, 250);
    const float y = kTop + kStep * static_cast<float>(line);
    BeginDraw(Dc(), Qt::SolidLine, kWhite, 1, kFill, BkMode::Transparent);
    DrawBox(kOutline, kOutline, kFill, kLeft, y, kLeft + 400, y + 35);
    DrawBox(Rgb(0, 150, 250), Rgb(0, 0, 100), kFill, kLeft + 1, y + 1, kLeft + 399, y + 34);
    const double textTop = y + (35 - Dc()->TextHeight()) / 2;
    const QString name = QStringLiteral("%1. %2").arg(row.rank).arg(row.name);
    WriteCell(Dc(), name, kLeft + 5, textTop, 285, row.isNew ? Rgb(250, 0, 50) : Rgb(250, 250, 0));
    WriteCell(Dc(), row.score, kLeft + 300, textTop, 94,
              row.isNew ? Rgb(250, 250, 250) : Rgb(100, 200, 250));
    EndDraw();
    Voice().AddCaption(name + QStringLiteral(", ") + row.score +
                           (row.isNew ? QStringLiteral(", new") : QString()),
                       QRectF(kLeft, y, 400, 35).toRect());
    Refresh();
}
