#include "toolkit/ListFace.h"

#include "toolkit/Drawing.h"
#include "toolkit/ListLayout.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {

constexpr Bevel kHeaders[] = {{Rgb(96, 110, 226), Rgb(22, 16, 66), Rgb(30, 36, 116)},
                              {kLilac, Rgb(50, 26, 120), Rgb(70, 52, 172)},
                              {Rgb(22, 16, 66), kPink, kDusk}};
constexpr Bevel kSubHeaders[] = {{Rgb(34, 36, 100), Rgb(8, 6, 30), Rgb(17, 15, 60)},
                                 {Rgb(90, 90, 190), Rgb(20, 16, 70), Rgb(34, 28, 100)},
                                 {Rgb(8, 6, 30), Rgb(90, 90, 190), Rgb(12, 9, 44)}};

// Dark enough for red text to be readable; blue hardly adds brightness.
constexpr ColorRef kLines[] = {Rgb(9, 7, 32), Rgb(15, 12, 48)};
constexpr ColorRef kSelected[] = {Rgb(24, 20, 62), Rgb(6, 4, 114)};
constexpr ColorRef kSelectedEdge[] = {Rgb(92, 92, 160), Rgb(84, 130, 255)};

constexpr ColorRef kRimLight = Rgb(134, 146, 240);
constexpr ColorRef kRimDark = Rgb(62, 70, 168);

constexpr double kArrowWidth = 9;
constexpr double kArrowHeight = 6;

/// The top of a line of text that is vertically centred in a cell.
double TextTop(const Canvas& canvas, const QRect& cell) {
    return std::floor(cell.y() + (cell.height() - canvas.TextHeight()) / 2);
}

/// One pixel wide; `light` above and to the left.
void DrawEdges(Hdc dc, const QRect& area, ColorRef light, ColorRef dark) {
    const QSize flat(area.width(), 1);
    const QSize upright(1, area.height());
    dc->Fill(QRect(area.topLeft(), flat), light);
    dc->Fill(QRect(area.topLeft(), upright), light);
    dc->Fill(QRect(area.bottomLeft(), flat), dark);
    dc->Fill(QRect(area.topRight(), upright), dark);
}

/// Light on the upper half of a header, as on the buttons.
void DrawGlass(Hdc dc, const QRect& cell) {
    const QRect glass = cell.adjusted(1, 1, -1, -cell.height() / 2);
    Drawing(dc).Shapes(glass, [glass](QPainter& painter) {
        QLinearGradient light(glass.topLeft(), glass.bottomLeft());
        light.setColorAt(0, QColor(255, 255, 255, 48));
        light.setColorAt(1, QColor(255, 255, 255, 10));
        painter.fillRect(glass, light);
    });
}

void DrawTitle(Hdc dc, const QRect& cell, const QString& text, ColorRef color, double width) {
    const QString shown = QFontMetricsF(dc->Font()).elidedText(text, Qt::ElideRight, width);
    Drawing(dc).Text(shown, color, kBlack, cell.x() + ListLayout::kMargin, TextTop(*dc, cell), 1);
}

void DrawArrow(Hdc dc, const QRect& cell, SortArrow arrow) {
    const double right = cell.right() - ListLayout::kMargin;
    const double middle = cell.y() + cell.height() / 2.0;
    const double tip = arrow == SortArrow::Upwards ? -kArrowHeight / 2 : kArrowHeight / 2;
    Drawing(dc).Shapes(cell, [=](QPainter& painter) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ToQColor(kGold));
        painter.drawPolygon(QPolygonF({{right - kArrowWidth, middle - tip},
                                       {right, middle - tip},
                                       {right - kArrowWidth / 2, middle + tip}}));
    });
}

} // namespace

void DrawHeaderCell(Hdc dc, const QRect& cell, const QString& text, HeaderLook look,
                    SortArrow arrow) {
    Drawing(dc).Box(kHeaders[static_cast<int>(look)], cell);
    if (look != HeaderLook::Pressed)
        DrawGlass(dc, cell);
    const QFont own = dc->Font();
    dc->SetFont(RoundFont(own.pixelSize() * 0.75, true));
    const double spare = arrow == SortArrow::None ? 0 : kArrowWidth + ListLayout::kMargin;
    DrawTitle(dc, cell, text, kWhite, cell.width() - 2 * ListLayout::kMargin - spare);
    dc->SetFont(own);
    if (arrow != SortArrow::None)
        DrawArrow(dc, cell, arrow);
}

void DrawSubHeaderCell(Hdc dc, const QRect& cell, const QString& text, HeaderLook look) {
    Drawing(dc).Box(kSubHeaders[static_cast<int>(look)], cell);
    DrawTitle(dc, cell, text, Rgb(160, 168, 240), cell.width() - 2 * ListLayout::kMargin);
}

void DrawLineGround(Hdc dc, const QRect& line, bool lighter, LineLook look) {
    if (look == LineLook::Plain)
        return dc->Fill(line, kLines[lighter]);
    const bool focus = look == LineLook::SelectedWithFocus;
    dc->Fill(line, kSelectedEdge[focus]);
    dc->Fill(line.adjusted(3, 1, -1, -1), kSelected[focus]);
}

void DrawLineFrame(Hdc dc, const QRect& line) {
    DrawEdges(dc, line.adjusted(1, 1, -1, -1), kGold, kGold);
}

void DrawInsertion(Hdc dc, const QRect& area, int y) {
    constexpr int kThick = 2;
    const int top = std::clamp(y - kThick / 2, area.y(), area.y() + area.height() - kThick);
    dc->Fill(QRect(area.x(), top, area.width(), kThick), kGold);
}

bool FitsCell(const Canvas& canvas, const QString& text, int width) {
    return canvas.TextWidth(text) <= width - 2 * ListLayout::kMargin;
}

void DrawCellTexts(Hdc dc, const QRect& area, const std::vector<PlacedText>& cells) {
    Drawing drawing(dc);
    const QFontMetricsF metrics(dc->Font());
    for (const PlacedText& placed : cells) {
        const int width = placed.cell.width();
        const QString shown =
            FitsCell(*dc, placed.text, width)
                ? placed.text
                : metrics.elidedText(placed.text, Qt::ElideRight, width - 2 * ListLayout::kMargin);
        drawing.SetClip(placed.cell & area);
        drawing.Text(shown, placed.color, placed.cell.x() + ListLayout::kMargin,
                     TextTop(*dc, placed.cell));
    }
}

void DrawListGround(Hdc dc, const QRect& area) { dc->Fill(area, kListGround); }

void DrawListFrame(Hdc dc) {
    DrawEdges(dc, QRect(0, 0, dc->Width(), dc->Height()), kRimLight, kRimDark);
}

} // namespace toolkit
