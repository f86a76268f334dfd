#include "toolkit/MessageSign.h"

#include "toolkit/Palette.h"

#include <QLineF>
#include <QPainter>
#include <map>
#include <vector>

namespace toolkit {

namespace {

struct Sign {
    ColorRef color;
    std::vector<QLineF> strokes; // a dot has no length
};

const Sign* SignOf(platform::Icon icon) {
    static const std::map<platform::Icon, Sign> signs = {
        {platform::Icon::Information, {kPeriwinkle, {{24, 15, 24, 15}, {24, 22, 24, 34}}}},
        {platform::Icon::Warning, {kGold, {{24, 14, 24, 26}, {24, 33, 24, 33}}}},
        {platform::Icon::Critical, {kPink, {{17, 17, 31, 31}, {31, 17, 17, 31}}}}};
    const auto found = signs.find(icon);
    return found != signs.end() ? &found->second : nullptr;
}

} // namespace

void PaintMessageSign(QPainter& painter, platform::Icon icon) {
    const Sign* sign = SignOf(icon);
    if (sign == nullptr)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ToQColor(sign->color), 3, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(ToQColor(kField));
    painter.drawEllipse(QPointF(24, 24), 21, 21);
    painter.setPen(QPen(ToQColor(sign->color), 4, Qt::SolidLine, Qt::RoundCap));
    for (const QLineF& stroke : sign->strokes) {
        if (stroke.isNull())
            painter.drawPoint(stroke.p1());
        else
            painter.drawLine(stroke);
    }
}

} // namespace toolkit
