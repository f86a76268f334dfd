#include "toolkit/PlainFace.h"

#include "toolkit/CutPath.h"

#include <QConicalGradient>
#include <QLinearGradient>
#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace toolkit {

namespace {

QColor WithAlpha(QColor color, double alpha) {
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

QLinearGradient Downwards(const QRectF& area, const QColor& top, const QColor& bottom) {
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

/// Lines of the same colour run at 45 degrees.
QLinearGradient Diagonal(const QRectF& area, ColorRef start, ColorRef end) {
    const double way = (area.width() + area.height()) / 2;
    QLinearGradient gradient(area.topLeft(), area.topLeft() + QPointF(way, way));
    gradient.setColorAt(0, ToQColor(start));
    gradient.setColorAt(1, ToQColor(end));
    return gradient;
}

/// Glass in the upper half, or the shadow of the rim that a pressed button lies behind.
void PaintShine(QPainter& painter, const QRectF& face, double cut, PlainFace::Light shine) {
    if (shine == PlainFace::Light::Sunk)
        return painter.fillPath(CutPath(face, cut),
                                Downwards(face, QColor(0, 0, 8, 170), QColor(0, 0, 8, 0)));
    QRectF glass = face.adjusted(2, 2, -2, 0);
    glass.setHeight(face.height() * 0.46);
    QPainterPath path;
    path.addPolygon(QPolygonF({{glass.left() + cut, glass.top()},
                               {glass.right() - cut, glass.top()},
                               {glass.right(), glass.top() + cut},
                               glass.bottomRight(),
                               glass.bottomLeft(),
                               {glass.left(), glass.top() + cut}}));
    painter.fillPath(path, Downwards(glass, QColor(255, 255, 255, 58), QColor(255, 255, 255, 12)));
}

/// A light below the middle, which is on under the pointer.
void PaintGlow(QPainter& painter, const QRectF& face, double cut, const QColor& color) {
    painter.save();
    painter.setClipPath(CutPath(face, cut));
    painter.translate(face.center().x(), face.bottom());
    painter.scale(face.width() / 2, face.height() * 0.6);
    QRadialGradient glow(QPointF(0, 0), 1);
    glow.setColorAt(0, color);
    glow.setColorAt(1, WithAlpha(color, 0));
    painter.fillRect(QRectF(-1, -1, 2, 1), glow);
    painter.restore();
}

/// Light above and to the left, dark below and to the right, with a transition along two of the cut
/// corners.
QConicalGradient EdgesOf(const QRectF& face, double cut, const PlainFace& look) {
    const double across = face.width() / 2;
    const double up = face.height() / 2;
    const auto turn = [](double x, double y) { return std::atan2(y, x) / (2 * std::numbers::pi); };
    const double dark = turn(across, up - cut);
    const double light = turn(across - cut, up);
    QConicalGradient edges(face.center(), 0);
    for (const double half : {0.0, 0.5}) {
        edges.setColorAt(half + dark, ToQColor(half == 0 ? look.dark : look.light));
        edges.setColorAt(half + light, ToQColor(half == 0 ? look.light : look.dark));
    }
    edges.setColorAt(0, ToQColor(look.dark));
    edges.setColorAt(1, ToQColor(look.dark));
    return edges;
}

} // namespace

double CutOf(const QRectF& button) { return std::clamp(button.height() / 5, 4.0, 9.0); }

void PaintPlainFace(QPainter& painter, const QRectF& area, const PlainFace& look) {
    using Light = PlainFace::Light;
    const double cut = CutOf(area);
    const double lip = std::clamp(area.height() / 12, 2.0, 4.0);
    const QRectF face = area.adjusted(1, 1, -1, -1 - lip);
    const bool sunk = look.shine == Light::Sunk;
    const QColor deep = ToQColor(sunk ? look.start : look.end);

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(CutPath(area, cut), Downwards(area, deep.darker(500), deep.darker(160)));
    painter.fillPath(CutPath(face, cut),
                     Diagonal(face.adjusted(2, 2, -2, -2), look.start, look.end));
    if (look.shine == Light::On)
        PaintGlow(painter, face, cut, QColor(200, 144, 255, 120));
    PaintShine(painter, face, cut, look.shine);
    const QRectF rim = face.adjusted(0.8, 0.8, -0.8, -0.8);
    painter.strokePath(CutPath(rim, cut - 0.3), QPen(EdgesOf(rim, cut, look), 1.6));
    painter.restore();
}

} // namespace toolkit
