#include "game/RecordLight.h"

#include "toolkit/Place.h"
#include "toolkit/StageSize.h"

#include <QConicalGradient>
#include <QPainter>
#include <QRegion>
#include <array>
#include <cmath>
#include <numbers>

using namespace toolkit;

namespace game {

namespace {

constexpr QPointF kMiddle(400, 300); // of the record
constexpr double kInner = 196;       // radii of the grooves that are lit
constexpr double kOuter = 262;
constexpr double kHalfWidth = 14; // degrees
constexpr std::array kGlints{0.0, 180.0};
constexpr QRect kGlint(188, -66, 76, 132); // around one, from the record's middle

/// The name of the game, the dial with the question, the score, and the player's line.
constexpr std::array kInFront{QRect(0, 0, 800, 62), QRect(225, 80, 350, 120),
                              QRect(570, 84, 220, 62), QRect(180, 500, 440, 100)};

QRect PlaceOfGlint(double angle) {
    QRectF place;
    for (const double aside : {-kHalfWidth, 0.0, kHalfWidth}) {
        const double turn = (angle + aside) * std::numbers::pi / 180;
        for (const double radius : {kInner, kOuter})
            place |=
                QRectF(kMiddle + radius * QPointF(std::cos(turn), std::sin(turn)), QSizeF(1, 1));
    }
    return place.toAlignedRect().adjusted(-4, -4, 4, 4);
}

} // namespace

RecordLight::RecordLight(QWidget* board) : TurningPart(board, QStringLiteral("RecordLight")) {
    Put(*this, QRect(QPoint(0, 0), kStageSize));
    lower(); // behind the buttons
}

void RecordLight::Turned(double from, double to) {
    for (const double glint : kGlints)
        for (const double angle : {from, to})
            update(FromLogical(PlaceOfGlint(glint + angle)));
}

/// A glint as it lies to the right of the record's middle, in the pixels of the screen.
QPixmap RecordLight::PaintGlint() const {
    const double scale = StageScale() * devicePixelRatioF();
    QPixmap glint((QSizeF(kGlint.size()) * scale).toSize());
    glint.fill(Qt::transparent);
    QPainter painter(&glint);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.translate(-kGlint.topLeft());
    QConicalGradient light(QPointF(0, 0), 0);
    for (const double at : {0.0, 1.0})
        light.setColorAt(at, QColor(170, 180, 255, 110));
    for (const double at : {kHalfWidth / 360, 1 - kHalfWidth / 360})
        light.setColorAt(at, QColor(170, 180, 255, 0));
    painter.setPen(QPen(light, 1.2));
    for (int groove = 0; kInner + 4.5 * groove <= kOuter; ++groove) {
        const double radius = kInner + 4.5 * groove;
        painter.drawArc(QRectF(-radius, -radius, 2 * radius, 2 * radius),
                        static_cast<int>(-kHalfWidth * 16), static_cast<int>(kHalfWidth * 2 * 16));
    }
    return glint;
}

void RecordLight::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.scale(StageScale(), StageScale());
    QRegion free(QRect(QPoint(0, 0), kStageSize));
    for (const QRect& place : kInFront)
        free -= place;
    painter.setClipRegion(free);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(kMiddle);
    painter.rotate(Angle());
    if (mGlint.isNull())
        mGlint = PaintGlint();
    for (const double glint : kGlints) {
        painter.rotate(glint);
        painter.drawPixmap(QRectF(kGlint), mGlint, QRectF(mGlint.rect()));
    }
}

void RecordLight::resizeEvent(QResizeEvent*) { mGlint = QPixmap(); }

} // namespace game
