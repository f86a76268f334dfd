#include "game/f_HighMulti.h"

#include "game/Crown.h"
#include "game/Podium.h"
#include "toolkit/Drawing.h"
#include "toolkit/FittedText.h"

#include <QPainter>
#include <algorithm>

using namespace toolkit;

namespace {

constexpr QRect kList(200, 175, 401, 361); // where the rows may stand
constexpr int kRowHeight = 36;
constexpr QSize kBeside(160, 44); // of the button beside Continue
constexpr ColorRef kQuiet = Rgb(190, 190, 250);

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

/// The place that the rows leave free: below them or, if that is too small, beside them.
QRect FreeBy(int rows, int rowHeight) {
    constexpr int kMostAbove = 5;
    constexpr int kGap = 12;
    constexpr int kEnd = kList.y() + kList.height() - 4;
    const int top = kList.y() + rows * rowHeight + kGap;
    return rows <= kMostAbove ? QRect(kList.x(), top, kList.width(), kEnd - top)
                              : QRect(612, kList.y(), 180, kEnd - kList.y());
}

QStringList Wrapped(const QString& text, const Canvas& canvas, int width) {
    QStringList lines(QString{});
    for (const QString& word : text.split(u' ')) {
        const QString longer = lines.back().isEmpty() ? word : lines.back() + u' ' + word;
        if (lines.back().isEmpty() || canvas.TextWidth(longer) <= width)
            lines.back() = longer;
        else
            lines << word;
    }
    return lines;
}

/// A bar in the player's colour, left of a row.
void DrawBar(Hdc dc, const QRect& row, ColorRef color) {
    const QRect bar(row.x() - 12, row.y() + 4, 7, row.height() - 8);
    Drawing(dc).Shapes(bar, [bar, color](QPainter& painter) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ToQColor(color));
        painter.drawRoundedRect(bar, 3.5, 3.5);
    });
}

} // namespace

f_HighMulti::f_HighMulti()
    : Screen(QStringLiteral("f_HighMulti")),
      pCont(new PictureBox(this, QStringLiteral("pCont"), QSize(220, 54))),
      pAgain(new PictureBox(this, QStringLiteral("pAgain"), kBeside)),
      pOther(new PictureBox(this, QStringLiteral("pOther"), kBeside)) {
    pCont->setAccessibleName(QStringLiteral("Continue"));
    for (PictureBox* box : {pAgain, pOther}) {
        box->Dc()->SetFont(RoundFont(16, true));
        box->hide();
    }
    for (PictureBox* box : {pCont, pAgain, pOther})
        box->SetButton(0); // screen readers may ask what it is before the controller draws it
}

void f_HighMulti::LayOut() {
    constexpr int kBelow = 4; // there is no more room below the table
    constexpr int kGap = 20;
    pCont->MoveTo((Width() - pCont->Width()) / 2, Height() - kBelow - pCont->Height());
    const QRect cont = pCont->Place();
    for (PictureBox* box : {pAgain, pOther})
        box->MoveTo(cont.right() + kGap, cont.y() + (cont.height() - kBeside.height()) / 2);
}

int f_HighMulti::RowHeight() const { return std::min(kRowHeight, kList.height() / mRows); }

QRect f_HighMulti::PlaceOfRow(int line) const {
    return {kList.x(), kList.y() + RowHeight() * line, kList.width(), RowHeight()};
}

void f_HighMulti::DrawTitle(const QString& title, const QString& game, int rows) {
    constexpr int kGameTop = 151;
    mRows = rows;
    mFree = FreeBy(rows, RowHeight());
    CopyBackground();
    Dc()->SetFont(ScreenFont(32, true));
    CenteredText(Dc(), title, 400, 100, Width(), kWhite, 3);
    AddCaption(title, QRect(0, 100, Width(), static_cast<int>(Dc()->TextHeight())));
    Dc()->SetFont(ScreenFont(13));
    CenteredText(Dc(), game, 400, kGameTop, Width(), kQuiet, 1);
    AddCaption(game, QRect(0, kGameTop, Width(), static_cast<int>(Dc()->TextHeight())));
}

void f_HighMulti::DrawRow(int line, const Row& row) {
    const QRect place = PlaceOfRow(line);
    Dc()->SetFont(ScreenFont(20.0 * place.height() / kRowHeight));
    const QString name = QStringLiteral("%1. %2").arg(row.rank).arg(row.name);
    DrawCells(place, name, row);
    if (row.color)
        DrawBar(Dc(), place, *row.color);
    if (row.won)
        game::DrawCrown(Dc(), QRect(place.x() - 50, place.center().y() - 12, 32, 24),
                        row.color.value_or(kGold));
    AddCaption(name + QStringLiteral(", ") + row.score +
                   (row.isNew ? QStringLiteral(", new") : QString()) +
                   (row.won ? QStringLiteral(", winner") : QString()),
               place);
    Refresh();
}

void f_HighMulti::DrawCells(const QRect& place, const QString& name, const Row& row) {
    Drawing drawing(Dc());
    drawing.Box({kAzure, kAzure, kNavy}, place);
    drawing.Box({kFrameLight, kNavy, kNavy}, place.adjusted(1, 1, -1, -1));
    const double textTop = place.y() + (place.height() - 1 - Dc()->TextHeight()) / 2;
    WriteCell(drawing, name, place.x() + 5, textTop, 285,
              row.isNew ? Rgb(250, 0, 50) : Rgb(250, 250, 0));
    WriteCell(drawing, row.score, place.x() + 300, textTop, 94,
              row.isNew ? Rgb(250, 250, 250) : Rgb(100, 200, 250));
}

void f_HighMulti::MarkRow(int line) {
    constexpr int kTip = 9;
    const QRect row = PlaceOfRow(line);
    Drawing(Dc()).Shapes(row.adjusted(-2, -2, kTip + 2, 2), [row](QPainter& painter) {
        const QRectF frame = QRectF(row).adjusted(0.5, 0.5, -0.5, -0.5);
        const QPointF tip(frame.right() + kTip, frame.center().y());
        painter.setPen(QPen(ToQColor(kGold), 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(frame);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ToQColor(kGold));
        painter.drawPolygon(
            QPolygonF({tip, {frame.right(), tip.y() - kTip}, {frame.right(), tip.y() + kTip}}));
    });
    Refresh();
}

void f_HighMulti::DrawNotices(const QStringList& notices) {
    constexpr int kGap = 10;
    Dc()->SetFont(ScreenFont(18, true));
    const double lineHeight = Dc()->TextHeight();
    for (const QString& notice : notices) {
        const QStringList lines = Wrapped(notice, *Dc(), mFree.width());
        const int height = static_cast<int>(lineHeight * static_cast<double>(lines.size()));
        AddCaption(notice, QRect(mFree.topLeft(), QSize(mFree.width(), height)));
        for (int i = 0; i < lines.size(); ++i)
            CenteredText(Dc(), lines[i], mFree.x() + mFree.width() / 2.0,
                         mFree.y() + i * lineHeight, mFree.width(), kGold, 2);
        mFree.setTop(mFree.y() + height + kGap);
    }
    Refresh();
}

void f_HighMulti::DrawPodium(const std::vector<game::Standing>& standings) {
    constexpr int kWidest = 330;
    const int spare = std::max(mFree.width() - kWidest, 0) / 2;
    game::DrawPodium(Dc(), mFree.adjusted(spare, 0, -spare, 0), standings);
    Refresh();
}
