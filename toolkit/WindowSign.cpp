#include "toolkit/WindowSign.h"

#include "toolkit/Palette.h"

#include <QLineF>
#include <QPainter>
#include <algorithm>
#include <vector>

namespace toolkit {

namespace {

struct Sign {
    QString skin;
    std::vector<QLineF> strokes; // around the frame's middle; 1 is a quarter of its shorter side
};

const std::vector<Sign>& Signs() {
    static const std::vector<Sign> signs = {
        {QStringLiteral("Images\\X.bmp"), {{-1, -1, 1, 1}, {-1, 1, 1, -1}}},
        {QStringLiteral("Images\\bMin.bmp"), {{-1.25, 0.75, 1.25, 0.75}}}};
    return signs;
}

auto FindSign(const QString& name) {
    return std::ranges::find_if(Signs(), [&name](const Sign& each) {
        return each.skin.compare(name, Qt::CaseInsensitive) == 0;
    });
}

void DrawStrokes(QPainter& painter, const std::vector<QLineF>& strokes, QPointF middle,
                 double scale, const QColor& color) {
    painter.setPen(QPen(color, 3, Qt::SolidLine, Qt::RoundCap));
    for (const QLineF& stroke : strokes)
        painter.drawLine(stroke.p1() * scale + middle, stroke.p2() * scale + middle);
}

} // namespace

bool HasWindowSign(const QString& name) { return FindSign(name) != Signs().end(); }

QImage WithWindowSign(QImage plainSkin, const QString& name) {
    const auto sign = FindSign(name);
    const QSizeF skin = plainSkin.deviceIndependentSize();
    const QSizeF frame(skin.width(), skin.height() / 3);
    const double quarter = std::min(frame.width(), frame.height()) / 4;
    QPainter painter(&plainSkin);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < 3; ++i) {
        const QPointF middle(frame.width() / 2, frame.height() * (i + 0.5));
        const QColor shadow = ToQColor(kField); // black would be transparent
        DrawStrokes(painter, sign->strokes, middle + QPointF(1, 1), quarter, shadow);
        DrawStrokes(painter, sign->strokes, middle, quarter, Qt::white);
    }
    painter.end();
    return plainSkin;
}

} // namespace toolkit
