#include "toolkit/StageGround.h"

#include "toolkit/Palette.h"
#include "toolkit/c_Surface.h"

#include <QLinearGradient>
#include <QPainter>

namespace toolkit {

namespace {

/// Stretches a line of pixels from the ground's edge over a bar beside it, from `start` outwards.
void CarryOn(QPainter& painter, const QRect& bar, const QImage& ground, const QRect& line,
             QPointF start, QPointF end) {
    if (bar.isEmpty())
        return;
    painter.drawImage(QRectF(bar), ground, QRectF(line));
    QLinearGradient shade(start, end);
    shade.setColorAt(0, QColor(0, 0, 0, 0));
    shade.setColorAt(1, QColor(0, 0, 0, 200));
    painter.fillRect(bar, shade);
}

} // namespace

void PaintGround(QPainter& painter, const QRect& whole, const QRect& area) {
    const Hdc ground = gBack && gBack->Count() > 0 ? gBack->HDC(0) : nullptr;
    if (ground == nullptr)
        return painter.fillRect(whole, ToQColor(kField));
    const QImage& picture = ground->Image();
    const QSize pixels = picture.size();
    painter.save();
    painter.translate(area.topLeft());
    ground->Show(painter);
    painter.restore();

    const QRect left(whole.topLeft(), QPoint(area.left() - 1, whole.bottom()));
    const QRect right(QPoint(area.right() + 1, whole.top()), whole.bottomRight());
    const QRect top(QPoint(area.left(), whole.top()), QPoint(area.right(), area.top() - 1));
    const QRect below(QPoint(area.left(), area.bottom() + 1), QPoint(area.right(), whole.bottom()));
    CarryOn(painter, left, picture, QRect(0, 0, 1, pixels.height()), area.topLeft(),
            whole.topLeft());
    CarryOn(painter, right, picture, QRect(pixels.width() - 1, 0, 1, pixels.height()),
            area.topRight(), whole.topRight());
    CarryOn(painter, top, picture, QRect(0, 0, pixels.width(), 1), area.topLeft(), whole.topLeft());
    CarryOn(painter, below, picture, QRect(0, pixels.height() - 1, pixels.width(), 1),
            area.bottomLeft(), whole.bottomLeft());
}

} // namespace toolkit
