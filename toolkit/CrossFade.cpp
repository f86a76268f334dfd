#include "toolkit/CrossFade.h"

#include "platform/Motion.h"

#include <QPainter>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace toolkit {

namespace {

constexpr double kDuration = 120; // milliseconds

bool InSight(const QWidget& area) {
    const QWindow* window = area.window()->windowHandle();
    return area.isVisible() && window != nullptr && window->isExposed();
}

} // namespace

void CrossFade::Begin(QWidget& area) {
    if (!InSight(area) || platform::MotionReduced())
        return;
    const auto* now = qobject_cast<CrossFade*>(area.graphicsEffect());
    const bool begins = now != nullptr && now->isEnabled() && !now->mClock.isValid();
    if (begins) // one screen was hidden, and the next one comes
        return;
    QWidget& window = *area.window();
    const QPoint corner = area.mapTo(&window, QPoint(0, 0));
    area.setGraphicsEffect(new CrossFade(area, window.grab(QRect(corner, area.size()))));
}

CrossFade::CrossFade(QWidget& area, const QPixmap& before) : mArea(area), mBefore(before) {
    constexpr int kFrame = 16;
    mTimer.setTimerType(Qt::PreciseTimer);
    mTimer.setInterval(kFrame);
    connect(&mTimer, &QTimer::timeout, this, &CrossFade::Step);
    mTimer.start();
}

void CrossFade::Step() {
    if (!mClock.isValid())
        mClock.start();
    if (static_cast<double>(mClock.elapsed()) >= kDuration) {
        mTimer.stop();
        setEnabled(false);
        deleteLater();
    }
    // What covers the area would keep it from being drawn anew.
    mArea.update();
    for (QWidget* form : mArea.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        form->update();
}

void CrossFade::draw(QPainter* painter) {
    // Not by `drawSource`, which breaks the painter when the widgets use painters of their own.
    QPoint corner;
    const QPixmap now = sourcePixmap(Qt::LogicalCoordinates, &corner, NoPad);
    painter->drawPixmap(corner, now);
    const double gone = mClock.isValid() ? static_cast<double>(mClock.elapsed()) / kDuration : 0;
    painter->setOpacity(1 - std::min(gone, 1.0));
    painter->drawPixmap(0, 0, mBefore);
}

} // namespace toolkit
