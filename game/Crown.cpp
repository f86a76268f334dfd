#include "game/Crown.h"

#include "toolkit/Drawing.h"

#include <QPainter>
#include <algorithm>

using namespace toolkit;

namespace game {

namespace {

void PaintGlow(QPainter& painter, const QRectF& area, QColor color) {
    QRadialGradient glow(area.center(), std::min(area.width(), area.height()) / 2);
    color.setAlpha(110);
    glow.setColorAt(0, color);
    color.setAlpha(0);
    glow.setColorAt(1, color);
    painter.fillRect(area, glow);
}

void PaintCrown(QPainter& painter, const QRectF& area, const QColor& color) {
    const auto at = [&area](double x, double y) {
        return QPointF(area.x() + x * area.width(), area.y() + y * area.height());
    };
    QPolygonF outline;
    const QPointF tips[] = {at(0.06, 0.3), at(0.5, 0.12), at(0.94, 0.3)};
    outline << tips[0] << at(0.3, 0.6) << tips[1] << at(0.7, 0.6) << tips[2] << at(0.84, 1)
            << at(0.16, 1);
    QLinearGradient metal(area.topLeft(), area.bottomLeft());
    metal.setColorAt(0, color.lighter(125));
    metal.setColorAt(1, color.darker(115));
    painter.setPen(QPen(color.darker(280), 1));
    painter.setBrush(metal);
    painter.drawPolygon(outline);
    const double ball = area.height() * 0.11;
    for (const QPointF& tip : tips)
        painter.drawEllipse(tip, ball, ball);
    painter.setPen(QPen(color.darker(220), 1));
    painter.drawLine(at(0.21, 0.82), at(0.79, 0.82));
}

} // namespace

void DrawCrown(Hdc dc, const QRect& area, ColorRef color) {
    const int glow = area.width() / 3;
    const QRect around = area.adjusted(-glow, -glow, glow, glow);
    Drawing(dc).Shapes(around, [area, around, color](QPainter& painter) {
        PaintGlow(painter, around, ToQColor(color));
        PaintCrown(painter, area, ToQColor(color));
    });
}

} // namespace game
