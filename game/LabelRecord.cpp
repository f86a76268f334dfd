#include "game/LabelRecord.h"

#include "toolkit/Place.h"

#include <QConicalGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

using namespace toolkit;

namespace game {

namespace {

constexpr double kRadius = LabelRecord::kSide / 2.0;
constexpr double kLabel = 23; // so large that a cover is recognised
constexpr double kHole = 1.6;

void PaintGrooves(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(6, 5, 20));
    painter.drawEllipse(QPointF(0, 0), kRadius, kRadius);
    QConicalGradient sheen(QPointF(0, 0), 30);
    for (const double at : {0.0, 0.5}) {
        sheen.setColorAt(at, QColor(170, 180, 255, 130));
        sheen.setColorAt(at + 0.09, QColor(170, 180, 255, 20));
        sheen.setColorAt(at + 0.41, QColor(170, 180, 255, 20));
    }
    sheen.setColorAt(1, QColor(170, 180, 255, 130));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(sheen, 1));
    for (int groove = 1; kLabel + 2 * groove < kRadius - 1; ++groove)
        painter.drawEllipse(QPointF(0, 0), kLabel + 2 * groove, kLabel + 2 * groove);
    painter.setPen(QPen(QColor(122, 140, 255), 1));
    painter.drawEllipse(QPointF(0, 0), kRadius - 0.5, kRadius - 0.5);
}

void PaintOwnLabel(QPainter& painter) {
    QRadialGradient label(QPointF(0, 0), kLabel);
    label.setColorAt(0, QColor(255, 108, 192));
    label.setColorAt(1, QColor(126, 40, 160));
    painter.setPen(Qt::NoPen);
    painter.setBrush(label);
    painter.drawEllipse(QPointF(0, 0), kLabel, kLabel);
    // A note.
    painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(3, 6), QPointF(3, -10));
    painter.drawLine(QPointF(3, -10), QPointF(9, -7));
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(-0.5, 7), 3.4, 2.6);
}

} // namespace

LabelRecord::LabelRecord(QWidget* board) : TurningPart(board, QStringLiteral("LabelRecord")) {}

void LabelRecord::SetCover(const QImage& cover) {
    mCover = QPixmap::fromImage(cover);
    mRecord = QPixmap();
    update();
}

/// The record before it turns, in the pixels of the screen.
QPixmap LabelRecord::PaintRecord() const {
    const double scale = StageScale() * devicePixelRatioF();
    QPixmap record((QSizeF(kSide, kSide) * scale).toSize());
    record.fill(Qt::transparent);
    QPainter painter(&record);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    painter.translate(kRadius, kRadius);
    PaintGrooves(painter);
    if (mCover.isNull()) {
        PaintOwnLabel(painter);
    } else {
        QPainterPath label;
        label.addEllipse(QPointF(0, 0), kLabel, kLabel);
        painter.setClipPath(label);
        painter.drawPixmap(QRectF(-kLabel, -kLabel, 2 * kLabel, 2 * kLabel), mCover,
                           QRectF(mCover.rect()));
        painter.setClipping(false);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(6, 5, 20));
    painter.drawEllipse(QPointF(0, 0), kHole, kHole);
    return record;
}

void LabelRecord::paintEvent(QPaintEvent*) {
    if (mRecord.isNull())
        mRecord = PaintRecord();
    QPainter painter(this);
    painter.scale(StageScale(), StageScale());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(kRadius, kRadius);
    painter.rotate(Angle());
    painter.drawPixmap(QRectF(-kRadius, -kRadius, kSide, kSide), mRecord, QRectF(mRecord.rect()));
}

void LabelRecord::resizeEvent(QResizeEvent*) { mRecord = QPixmap(); }

} // namespace game
