#include "game/Dial.h"

#include "toolkit/Drawing.h"
#include "toolkit/Screen.h"

#include <QPainter>
#include <QRadialGradient>
#include <algorithm>

using namespace toolkit;

namespace game {

namespace {

// The glass of the dial, below and behind the clock.
constexpr QRect kStrip(242, 122, 316, 23);
constexpr QRect kLamp(386, 90, 144, 32);
constexpr double kFirst = 264; // where the scale begins and ends
constexpr double kLast = 536;
constexpr double kLine = 131;

const QColor kLit(150, 166, 255);
const QColor kSpent(58, 62, 130);

/// The ticks between two marks.
void PaintTicks(QPainter& painter, double from, double to) {
    constexpr int kParts = 5;
    for (int part = 1; part < kParts; ++part) {
        const double x = from + (to - from) * part / kParts;
        painter.drawLine(QPointF(x, kLine - 2.5), QPointF(x, kLine));
    }
}

void PaintMark(QPainter& painter, double x, const QString& label) {
    constexpr QSizeF kRoom(60, 13);
    painter.drawLine(QPointF(x, kLine - 5), QPointF(x, kLine));
    painter.setPen(QColor(206, 212, 255));
    painter.drawText(QRectF(QPointF(x - kRoom.width() / 2, kLine + 1), kRoom), Qt::AlignCenter,
                     label);
}

void PaintNeedle(QPainter& painter, double x) {
    for (const auto& [width, alpha] : {std::pair(6.0, 60), std::pair(3.0, 120)}) {
        painter.setPen(QPen(QColor(255, 88, 176, alpha), width, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(x, kStrip.top() + 2), QPointF(x, kLine));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 120, 192));
    const QPointF tip(x, kLine + 0.5);
    painter.drawPolygon(QPolygonF{tip, tip + QPointF(-4.5, -9), tip + QPointF(4.5, -9)});
}

} // namespace

double Dial::Scale::At(float seconds) const {
    const double step = (kLast - kFirst) / static_cast<double>(marks.size() - 1);
    double x = kFirst;
    for (std::size_t i = 1; i < marks.size(); ++i, x += step) {
        const float from = marks[i - 1].seconds;
        if (seconds < marks[i].seconds)
            return x + step * std::max(seconds - from, 0.0F) / (marks[i].seconds - from);
    }
    return kLast;
}

void Dial::ShowPoints() {
    Show({{{0, QStringLiteral("120k")},
           {1, QStringLiteral("100k")},
           {2, QStringLiteral("80k")},
           {3, QStringLiteral("60k")},
           {4, QStringLiteral("40k")},
           {5, QStringLiteral("15k")},
           {10, QStringLiteral("1k")},
           {15, QStringLiteral("200")}}});
}

void Dial::ShowSeconds(int seconds) {
    Scale scale;
    for (int second = 0; second <= seconds; ++second)
        scale.marks.push_back({static_cast<float>(second), QStringLiteral("%1 s").arg(second)});
    Show(std::move(scale));
}

void Dial::Show(Scale scale) {
    mScale = std::move(scale);
    Draw(0);
}

void Dial::PointTo(float seconds) { Draw(seconds); }

void Dial::LightLamp() {
    Drawing(mBoard.Dc()).Shapes(kLamp, [](QPainter& painter) {
        painter.translate(458, 104); // the middle of the digits
        painter.scale(72, 25);
        QRadialGradient lamp(QPointF(0, 0), 1);
        lamp.setColorAt(0, QColor(214, 220, 255));
        lamp.setColorAt(0.7, QColor(168, 180, 255));
        lamp.setColorAt(0.82, QColor(104, 116, 232, 190));
        lamp.setColorAt(1, QColor(60, 70, 200, 0));
        painter.setClipRect(QRectF(-1, -0.56, 2, 1.28)); // the glass
        painter.fillRect(QRectF(-1, -1, 2, 2), lamp);
    });
}

void Dial::Draw(float seconds) {
    mBoard.CopyBackground(kStrip);
    Drawing(mBoard.Dc()).Shapes(kStrip, [scale = mScale, seconds](QPainter& painter) {
        const double needle = scale.At(seconds);
        painter.setFont(ScreenFont(9, true));
        painter.setPen(QPen(kSpent, 2));
        painter.drawLine(QPointF(kFirst, kLine), QPointF(needle, kLine));
        painter.setPen(QPen(kLit, 2));
        painter.drawLine(QPointF(needle, kLine), QPointF(kLast, kLine));
        double before = kFirst;
        for (const Mark& mark : scale.marks) {
            const double x = scale.At(mark.seconds);
            painter.setPen(QPen(x < needle ? kSpent : kLit, 1));
            PaintTicks(painter, before, x);
            PaintMark(painter, x, mark.label);
            before = x;
        }
        PaintNeedle(painter, needle);
    });
}

} // namespace game
