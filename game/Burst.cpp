#include "game/Burst.h"

#include "platform/Motion.h"
#include "toolkit/Place.h"
#include "toolkit/StageSize.h"

#include <QPainter>
#include <cmath>
#include <numbers>

using namespace toolkit;

namespace game {

namespace {

/// A number from 0 to 1 that belongs to a spark.
double Scatter(int spark, double factor) {
    const double value = spark * factor;
    return value - std::floor(value);
}

} // namespace

Burst::Burst(QWidget* board) : QWidget(board) {
    constexpr int kDuration = 800; // milliseconds
    setObjectName(QStringLiteral("Burst"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    Put(*this, QRect(QPoint(0, 0), kStageSize));
    hide();
    mTime.setStartValue(0.0);
    mTime.setEndValue(1.0);
    mTime.setDuration(kDuration);
    mTime.setEasingCurve(QEasingCurve::OutCubic);
    connect(&mTime, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(&mTime, &QVariantAnimation::finished, this, &Burst::hide);
}

void Burst::Begin(const QRect& place, ColorRef color) {
    End();
    if (platform::MotionReduced())
        return;
    mPlace = place;
    mColor = ToQColor(color);
    raise();
    show();
    mTime.start();
}

void Burst::End() {
    mTime.stop();
    hide();
}

void Burst::paintEvent(QPaintEvent*) {
    constexpr int kSparks = 90;
    const double time = mTime.currentValue().toDouble();
    const double fading = 1 - time;
    QPainter painter(this);
    painter.scale(StageScale(), StageScale());
    painter.setRenderHint(QPainter::Antialiasing);

    const double grown = 40 * time;
    const QRectF ring = mPlace.adjusted(-grown, -grown, grown, grown);
    for (const auto& [width, share] :
         {std::pair(14.0, 0.15), std::pair(7.0, 0.3), std::pair(2.0, 0.9)}) {
        QColor light = mColor;
        light.setAlphaF(static_cast<float>(share * fading));
        painter.setPen(QPen(light, width));
        painter.drawRoundedRect(ring, ring.height() / 2, ring.height() / 2);
    }

    painter.setPen(Qt::NoPen);
    for (int spark = 0; spark < kSparks; ++spark) {
        const double turn = 2 * std::numbers::pi * spark / kSparks;
        const QPointF way(std::cos(turn), std::sin(turn));
        const QPointF start(mPlace.center().x() + way.x() * mPlace.width() / 2,
                            mPlace.center().y() + way.y() * mPlace.height() / 2);
        const double far = 60 + 200 * Scatter(spark, 0.61803);
        const double fall = 60 * time * time;
        const double size = (1.5 + 2.5 * Scatter(spark, 0.38197)) * fading;
        QColor light = spark % 3 == 0 ? QColor(Qt::white) : mColor;
        light.setAlphaF(static_cast<float>(fading));
        painter.setBrush(light);
        painter.drawEllipse(start + way * far * time + QPointF(0, fall), size, size);
    }
}

} // namespace game
