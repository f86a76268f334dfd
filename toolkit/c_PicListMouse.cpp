// Mouse input of a picture list.

#include "toolkit/ListFace.h"
#include "toolkit/ToolTip.h"
#include "toolkit/c_PicListState.h"

#include <QGuiApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
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

/// How many lines at a time the list scrolls down while lines are dragged to `y`: none in the
/// middle of the list, and more the farther out `y` is.
int ScrollAt(const ListLayout& layout, double y) {
    const int height = layout.LineHeight();
    const double upper = layout.Lines().y() + height / 2.0 - y;
    const double lower = y - (layout.Lines().bottom() + 1 - height / 2.0);
    if (upper > 0)
        return -1 - static_cast<int>(upper / height);
    return lower > 0 ? 1 + static_cast<int>(lower / height) : 0;
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
        PressLine(LineAt(place), event);
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

/// Marked lines may be dragged together, so a click on one only counts at its release.
void c_PicList::PressLine(int line, const QMouseEvent& event) {
    const bool plain = !(event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier));
    if (plain && Exists(line) && mState->isMarked(line))
        mState->waiting = line;
    else
        Choose(line, event.modifiers(), false);
    if (plain && Exists(line))
        mState->dragStart.Press(event.globalPosition());
}

void c_PicList::PressRight(QPointF place) {
    const int line = LineAt(place);
    if (line < 0)
        return;
    if (IsChosen(line)) {
        mState->selected = line;
        MoveCursor(line);
    } else {
        Choose(line, {}, false);
    }
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
    } else if (!mState->dragged.empty()) {
        DragLinesTo(place);
    } else if (mState->dragStart.Begins(event.globalPosition())) {
        mState->dragged = ChosenLines();
        DragLinesTo(place);
        ShowCursor();
    } else {
        PointAt(place);
    }
}

void c_PicList::DragLinesTo(QPointF place) {
    AdjustScroller();
    const ListLayout layout = Layout();
    const double below = place.y() - layout.LineTop(0, mState->scroller.Top());
    mState->dropBefore = static_cast<int>(std::lround(below / layout.LineHeight()));
    mState->dropBefore = std::clamp(mState->dropBefore, 0, LineCount());
    mState->dragPlace = place;
    if (ScrollAt(layout, place.y()) == 0)
        mState->dragScroll.stop();
    else if (!mState->dragScroll.isActive())
        mState->dragScroll.start();
    Refresh();
}

void c_PicList::ScrollDrag() {
    const ListLayout layout = Layout();
    const int way = ScrollAt(layout, mState->dragPlace.y()) * layout.LineHeight();
    ScrollBar& scroller = mState->scroller;
    scroller.SetTop(std::clamp(scroller.Top() + way, 0, scroller.MaxTop()));
    DragLinesTo(mState->dragPlace);
}

/// Returns the lines that were dragged, if any.
std::vector<int> c_PicList::EndLineDrag() {
    mState->dragStart.Release();
    mState->waiting = -1;
    if (mState->dragged.empty())
        return {};
    mState->dragScroll.stop();
    const std::vector<int> lines = std::exchange(mState->dragged, {});
    ShowCursor();
    Refresh();
    return lines;
}

void c_PicList::WantLinesMoved(const std::vector<int>& lines, int before) {
    const bool together = lines.back() - lines.front() + 1 == static_cast<int>(lines.size());
    if (!together || before < lines.front() || before > lines.back() + 1)
        Q_EMIT LinesMoveWanted(lines, before);
}

void c_PicList::Release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    const int clicked = mState->waiting;
    if (const std::vector<int> dragged = EndLineDrag(); !dragged.empty())
        WantLinesMoved(dragged, mState->dropBefore);
    else if (clicked >= 0)
        Choose(clicked, {}, false);
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
    if (!mState->dragged.empty())
        DragLinesTo(mState->dragPlace);
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
    const bool lines = !mState->dragged.empty();
    mState->box->setCursor(border  ? Qt::SplitHCursor
                           : lines ? Qt::DragMoveCursor
                                   : Qt::ArrowCursor);
}

/// Shows the whole text of a cell that is too narrow for it.
void c_PicList::ShowWhole(const QHelpEvent& event) {
    const QPointF place = ToLogical(event.pos());
    const int line = LineAt(place);
    const int column = ColumnAt(place);
    const QString text = CellText(line, column);
    const QRect cell = CellRect(line, column);
    const bool whole = line < 0 || FitsCell(mState->box->Picture(), text, cell.width());
    if (whole || !mState->dragged.empty())
        QToolTip::hideText();
    else
        QToolTip::showText(event.globalPos(), ToolTipOf(text), mState->box, FromLogical(cell));
}

void c_PicList::ForgetPointer() {
    PointAt(QPointF(-1, -1));
    mState->pressed = {};
    mState->scroller.Release();
    EndLineDrag();
}
