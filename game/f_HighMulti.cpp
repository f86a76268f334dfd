#include "game/f_HighMulti.h"

#include "toolkit/Drawing.h"
#include "toolkit/FittedText.h"

using namespace toolkit;

namespace {

void WriteCell(Drawing& drawing, const QString& text, double x, double y, double width,
               ColorRef color) {
    constexpr double kSmallest = 0.9; // a smaller red would be hard to read
    const Hdc dc = drawing.Dc();
    const QFont own = dc->Font();
    const FittedText fitted = FitText(text, own, width, kSmallest);
    const double lower = dc->TextHeight();
    dc->SetFont(fitted.font);
    drawing.Text(fitted.text, color, kBlack, x, y + (lower - dc->TextHeight()) / 2, 3);
    dc->SetFont(own);
}

} // namespace

f_HighMulti::f_HighMulti()
    : Screen(QStringLiteral("f_HighMulti")),
      pCont(new PictureBox(this, QStringLiteral("pCont"), QSize(220, 54))) {
    pCont->setAccessibleName(QStringLiteral("Continue"));
}

void f_HighMulti::LayOut() {
    constexpr int kBelow = 4; // all that the table leaves
    pCont->MoveTo((Width() - pCont->Width()) / 2, Height() - kBelow - pCont->Height());
}

void f_HighMulti::DrawTitle(const QString& title) {
    CopyBackground();
    Dc()->SetFont(ScreenFont(32, true));
    CenteredText(Dc(), title, 400, 100, Width(), kWhite, 3);
    AddCaption(title, QRect(0, 100, Width(), static_cast<int>(Dc()->TextHeight())));
    Dc()->SetFont(ScreenFont(20));
}

void f_HighMulti::DrawRow(int line, const Row& row) {
    constexpr int kHeight = 36;
    const QRect place(200, 175 + kHeight * line, 401, kHeight);
    Drawing drawing(Dc());
    drawing.Box({kAzure, kAzure, kNavy}, place);
    drawing.Box({kFrameLight, kNavy, kNavy}, place.adjusted(1, 1, -1, -1));
    const double textTop = place.y() + (kHeight - 1 - Dc()->TextHeight()) / 2;
    const QString name = QStringLiteral("%1. %2").arg(row.rank).arg(row.name);
    WriteCell(drawing, name, place.x() + 5, textTop, 285,
              row.isNew ? Rgb(250, 0, 50) : Rgb(250, 250, 0));
    WriteCell(drawing, row.score, place.x() + 300, textTop, 94,
              row.isNew ? Rgb(250, 250, 250) : Rgb(100, 200, 250));
    AddCaption(name + QStringLiteral(", ") + row.score +
                   (row.isNew ? QStringLiteral(", new") : QString()),
               place);
    Refresh();
}
