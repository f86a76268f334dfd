#include "toolkit/ListFace.h"

#include "toolkit/ApiDraw.h"
#include "toolkit/ListLayout.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>
#include <array>
#include <cmath>

namespace toolkit {

namespace {

struct Box {
    ColorRef light;
    ColorRef dark;
    ColorRef fill;
};

constexpr Box kHeaders[] = {{Rgb(96, 110, 226), Rgb(22, 16, 66), Rgb(30, 36, 116)},
                            {Rgb(170, 150, 255), Rgb(50, 26, 120), Rgb(70, 52, 172)},
                            {Rgb(22, 16, 66), Rgb(255, 108, 192), Rgb(20, 12, 60)}};
constexpr Box kSubHeaders[] = {{Rgb(34, 36, 100), Rgb(8, 6, 30), Rgb(17, 15, 60)},
                               {Rgb(90, 90, 190), Rgb(20, 16, 70), Rgb(34, 28, 100)},
                               {Rgb(8, 6, 30), Rgb(90, 90, 190), Rgb(12, 9, 44)}};

// The grounds are so dark that red text is readable on all of them; blue hardly adds brightness.
constexpr ColorRef kGround = Rgb(8, 6, 28);
constexpr ColorRef kLines[] = {Rgb(9, 7, 32), Rgb(15, 12, 48)};
constexpr ColorRef kSelected[] = {Rgb(24, 20, 62), Rgb(6, 4, 114)};
constexpr ColorRef kSelectedEdge[] = {Rgb(92, 92, 160), Rgb(84, 130, 255)};

constexpr double kMarkWidth = 9;
constexpr double kMarkHeight = 6;

void DrawEdged(Hdc dc, const QRect& cell, const Box& box) {
    BeginDraw(dc, Qt::SolidLine, kWhite, 1, kBlack, BkMode::Transparent);
    DrawBox(box.light, box.dark, box.fill, static_cast<float>(cell.left()),
            static_cast<float>(cell.top()), static_cast<float>(cell.right()),
            static_cast<float>(cell.bottom()));
    dc->Fill(QRect(cell.bottomRight(), QSize(1, 1)), box.dark);
    EndDraw();
}

void DrawTitle(Hdc dc, const QRect& cell, const QString& text, const QFont& font, ColorRef color,
               double width) {
    const QFontMetricsF metrics(font);
    QPainter painter(&dc->PaintDevice());
    painter.setFont(font);
    const QPointF at(cell.x() + ListLayout::kMargin,
                     std::floor(cell.y() + (cell.height() - metrics.height()) / 2) +
                         metrics.ascent());
    const QString shown = metrics.elidedText(text, Qt::ElideRight, width);
    painter.setPen(Qt::black);
    painter.drawText(at + QPointF(1, 1), shown);
    painter.setPen(ToQColor(color));
    painter.drawText(at, shown);
}

void DrawMark(Hdc dc, const QRect& cell, SortMark mark) {
    const double right = cell.right() - ListLayout::kMargin;
    const double middle = cell.y() + cell.height() / 2.0;
    const double tip = mark == SortMark::Upwards ? -kMarkHeight / 2 : kMarkHeight / 2;
    const std::array<QPointF, 3> corners = {QPointF(right - kMarkWidth, middle - tip),
                                            QPointF(right, middle - tip),
                                            QPointF(right - kMarkWidth / 2, middle + tip)};
    QPainter painter(&dc->PaintDevice());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 221, 120));
    painter.drawPolygon(corners.data(), static_cast<int>(corners.size()));
}

} // namespace

void DrawHeaderCell(Hdc dc, const QRect& cell, const QString& text, HeaderLook look,
                    SortMark mark) {
    DrawEdged(dc, cell, kHeaders[static_cast<int>(look)]);
    QFont font = dc->Font();
    font.setBold(true);
    const double spare = mark == SortMark::None ? 0 : kMarkWidth + ListLayout::kMargin;
    DrawTitle(dc, cell, text, font, kWhite, cell.width() - 2 * ListLayout::kMargin - spare);
    if (mark != SortMark::None)
        DrawMark(dc, cell, mark);
}

void DrawSubHeaderCell(Hdc dc, const QRect& cell, const QString& text, HeaderLook look) {
    DrawEdged(dc, cell, kSubHeaders[static_cast<int>(look)]);
    DrawTitle(dc, cell, text, dc->Font(), Rgb(160, 168, 240),
              cell.width() - 2 * ListLayout::kMargin);
}

void DrawLineGround(Hdc dc, const QRect& line, bool lighter, LineLook look) {
    if (look == LineLook::Plain)
        return dc->Fill(line, kLines[lighter]);
    const bool focus = look == LineLook::SelectedWithFocus;
    dc->Fill(line, kSelectedEdge[focus]);
    dc->Fill(line.adjusted(3, 1, -1, -1), kSelected[focus]);
}

void DrawCellTexts(Hdc dc, const QRect& area, const std::vector<PlacedText>& cells) {
    const QFontMetricsF metrics(dc->Font());
    QPainter painter(&dc->PaintDevice());
    painter.setFont(dc->Font());
    for (const PlacedText& cell : cells) {
        painter.setClipRect(cell.cell & area);
        painter.setPen(ToQColor(cell.color));
        const double top = std::floor(cell.cell.y() + (cell.cell.height() - metrics.height()) / 2);
        painter.drawText(QPointF(cell.cell.x() + ListLayout::kMargin, top + metrics.ascent()),
                         cell.text);
    }
}

void DrawListGround(Hdc dc, const QRect& area) { dc->Fill(area, kGround); }

void DrawListFrame(Hdc dc) {
    constexpr ColorRef light = Rgb(0, 150, 250);
    constexpr ColorRef dark = Rgb(0, 60, 160);
    const int width = dc->Width();
    const int height = dc->Height();
    dc->Fill(QRect(0, 0, width, 1), light);
    dc->Fill(QRect(0, 0, 1, height), light);
    dc->Fill(QRect(0, height - 1, width, 1), dark);
    dc->Fill(QRect(width - 1, 0, 1, height), dark);
}

} // namespace toolkit
