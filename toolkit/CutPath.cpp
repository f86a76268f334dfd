#include "toolkit/CutPath.h"

#include <QPolygonF>

namespace toolkit {

QPainterPath CutPath(const QRectF& area, double cut) {
    QPainterPath path;
    path.addPolygon(QPolygonF({{area.left() + cut, area.top()},
                               {area.right() - cut, area.top()},
                               {area.right(), area.top() + cut},
                               {area.right(), area.bottom() - cut},
                               {area.right() - cut, area.bottom()},
                               {area.left() + cut, area.bottom()},
                               {area.left(), area.bottom() - cut},
                               {area.left(), area.top() + cut}}));
    path.closeSubpath();
    return path;
}

} // namespace toolkit
