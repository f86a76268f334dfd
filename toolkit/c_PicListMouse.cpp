// Mouse input of a picture list.

#include "toolkit/c_PicListState.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

using namespace toolkit;
using Part = ListLayout::Part;

namespace {

constexpr int kNotch = 120; // of a wheel
constexpr int kLinesPerNotch = 3;

/// How far a wheel event scrolls down, in logical pixels.
double WheelWay(const QWheelEvent& event, int lineHeight) {
    // Under X11 the pixels of an event depend on the driver.
    if (!event.pixelDelta().isNull() && QGuiApplication::platformName() != QStringLiteral("xcb"))
        return -event.pixelDelta().y() / StageScale();
    return -static_cast<double>(event.angleDelta().y()) * kLinesPerNotch * lineHeight / kNotch;
}

} // namespace

void c_PicList::Press(const QMouseEvent& event) {
    const QPointF place = ToLogical(event.position());
    if (event.button() == Qt::RightButton)
        return PressRight(place);
    if (event.button() != Qt::LeftButton)
        return;
    AdjustScroller();
    PointAt(place);
    if (mState->hover.part == Part::Lines) {
        Choose(LineAt(place), event.modifiers(), false);
    } else {
        mState->pressed = mState->hover;
        if (mState->pressed.part == Part::Border) {
            mState->columnsBefore = mState->columns;
            mState->borderGrip = place.x() - Layout().BorderAt(mState->pressed.column);
        }
        if (mState->pressed.part == Part::Scroller) {
            const ListLayout layout = Layout();
            mState->scroller.Press(place.y(), layout.Lines().height() - layout.LineHeight());
        }
        Refresh();
    }
}

void c_PicList::PressRight(QPointF place) {
    const int line = LineAt(place);
    if (line < 0)
        return;
    if (!IsChosen(line))
        Choose(line, {}, false);
    mState->selected = line;
    MoveCursor(line);
    WantMenu(line, place);
}

void c_PicList::DoublePress(const QMouseEvent& event) {
    const QPointF place = ToLogical(event.position());
    const int line = LineAt(place);
    if (event.button() == Qt::LeftButton && line >= 0 && line == mState->selected) {
        Q_EMIT LineDoubleClicked(line);
        return;
    }
    const ListLayout::Spot spot = Layout().At(place);
    if (event.button() == Qt::LeftButton && spot.part == Part::Border)
        return FitColumn(spot.column);
    Press(event);
    if (mState->pressed.part == Part::Header)
        Q_EMIT HeaderDoubleClicked(mState->pressed.column);
}

void c_PicList::Move(const QMouseEvent& event) {
    const QPointF place = ToLogical(event.position());
    if (mState->scroller.Held()) {
        mState->scroller.DragTo(place.y());
        Refresh();
    } else if (mState->pressed.part == Part::Border) {
        mState->columns = mState->columnsBefore;
        MoveBorder(mState->pressed.column, place.x() - mState->borderGrip);
    } else {
        PointAt(place);
    }
}

void c_PicList::Release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    mState->scroller.Release();
    const ListLayout::Spot pressed = std::exchange(mState->pressed, {});
    PointAt(ToLogical(event.position()));
    Refresh();
    if (pressed.part == Part::Border && mState->columns != mState->columnsBefore)
        Q_EMIT ColumnsResized();
    if (pressed != mState->hover)
        return;
    if (pressed.part == Part::Header)
        Q_EMIT HeaderSelClicked(pressed.column);
    if (pressed.part == Part::SubHeader)
        Q_EMIT SubHeaderClicked(pressed.column);
}

void c_PicList::Wheel(const QWheelEvent& event) {
    AdjustScroller();
    ScrollBar& scroller = mState->scroller;
    const double way = mState->wheelRest + WheelWay(event, Layout().LineHeight());
    const double whole = std::trunc(way);
    mState->wheelRest = way - whole;
    scroller.SetTop(std::clamp(scroller.Top() + static_cast<int>(whole), 0, scroller.MaxTop()));
    Refresh();
}

void c_PicList::PointAt(const QPointF& point) {
    const ListLayout::Spot spot = Layout().At(point);
    const bool onThumb = spot.part == Part::Scroller &&
                         std::floor(point.y()) >= mState->scroller.Thumb().top() &&
                         std::floor(point.y()) <= mState->scroller.Thumb().bottom();
    const bool thumbChanged = mState->scroller.SetHover(onThumb);
    if (std::exchange(mState->hover, spot) != spot || thumbChanged)
        Refresh();
    ShowCursor();
}

void c_PicList::ShowCursor() {
    const bool border = mState->hover.part == Part::Border || mState->pressed.part == Part::Border;
    mState->box->setCursor(border ? Qt::SplitHCursor : Qt::ArrowCursor);
}

void c_PicList::ForgetPointer() {
    PointAt(QPointF(-1, -1));
    mState->pressed = {};
    mState->scroller.Release();
}
