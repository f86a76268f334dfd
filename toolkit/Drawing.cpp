#include "toolkit/Drawing.h"

#include "toolkit/CutPath.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPen>

namespace toolkit {

Drawing::Drawing(Hdc dc) : mDc(dc) {
    BeginDraw(dc, Qt::SolidLine, kWhite, 1, kBlack, BkMode::Transparent);
}

void Drawing::Fill(ColorRef color, double x1, double y1, double x2, double y2) {
    SetDrawBrush(color);
    FillBox(x1, y1, x2, y2);
}

void Drawing::Box(const Bevel& look, const QRect& area) {
    DrawBox(look.light, look.dark, look.fill, area.left(), area.top(), area.right(), area.bottom());
}

void Drawing::Gradient(double x1, double y1, double x2, double y2, ColorRef start, ColorRef end) {
    GradientBox(x1, y1, x2, y2, start, end);
}

void Drawing::Lines(ColorRef color, int width, std::initializer_list<QPoint> points) {
    SetDrawPen(Qt::SolidLine, color, width);
    const auto* point = points.begin();
    PenMoveTo(point->x(), point->y());
    while (++point != points.end())
        PenLineTo(point->x(), point->y());
}

void Drawing::Text(const QString& text, ColorRef color, double x, double y) {
    SetDrawTextColor(color);
    PlainText(text, x, y);
}

void Drawing::Text(const QString& text, ColorRef color, ColorRef shadow, double x, double y,
                   double offset) {
    ShadowText(text, color, shadow, x, y, offset);
}

void DrawPanel(Hdc dc) {
    const QRect area(0, 0, dc->Width(), dc->Height());
    dc->Fill(area, kBlack); // the canvas forgets what it had shown, which shapes do not make it do
    Drawing(dc).Shapes(area, [area](QPainter& painter) {
        QLinearGradient ground(area.topLeft(), area.bottomLeft());
        ground.setColorAt(0, QColor(26, 22, 94));
        ground.setColorAt(0.4, QColor(15, 13, 64));
        ground.setColorAt(1, QColor(10, 8, 44));
        painter.fillRect(area, ground);
        QLinearGradient rim(area.topLeft(), area.bottomLeft());
        rim.setColorAt(0, QColor(164, 176, 255));
        rim.setColorAt(1, QColor(70, 80, 188));
        const QRectF edge(area);
        painter.strokePath(CutPath(edge.adjusted(3, 3, -3, -3), kPanelCut - 1),
                           QPen(QColor(138, 154, 255, 30), 4));
        painter.strokePath(CutPath(edge.adjusted(0.8, 0.8, -0.8, -0.8), kPanelCut - 0.3),
                           QPen(rim, 1.6));
    });
}

} // namespace toolkit
