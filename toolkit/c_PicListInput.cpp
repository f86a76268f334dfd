// Mouse and keyboard input of a picture list.

#include "toolkit/Stage.h"
#include "toolkit/c_PicListState.h"

#include <QGuiApplication>
#include <QKeyEvent>
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

bool c_PicList::eventFilter(QObject* box, QEvent* event) {
    if (box != mState->box)
        return false;
    switch (event->type()) {
    case QEvent::Paint:
        if (mState->dirty)
            Draw();
        return false;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::Resize:
        Refresh();
        return false;
    case QEvent::Leave:
        PointAt(QPointF(-1, -1));
        return false;
    case QEvent::Hide:
        ForgetPointer();
        return false;
    case QEvent::KeyPress:
        return Key(*static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
        Press(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonDblClick:
        DoublePress(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseMove:
        Move(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonRelease:
        Release(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::Wheel:
        Wheel(*static_cast<QWheelEvent*>(event));
        return true;
    default:
        return false;
    }
}

bool c_PicList::Key(const QKeyEvent& event) {
    if (event.matches(QKeySequence::SelectAll)) {
        Q_EMIT SelectAllWanted();
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Delete:
        Q_EMIT RemoveWanted();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (mState->selected >= 0)
            Q_EMIT LineDoubleClicked(mState->selected);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        return true; // otherwise the form would move the focus
    case Qt::Key_Space:
        if (!event.modifiers().testFlag(Qt::ControlModifier))
            return Type(event);
        Choose(mState->cursor, event.modifiers(), true);
        return true;
    default:
        return MenuKey(event) || MoveKey(event) || Type(event);
    }
}

bool c_PicList::MenuKey(const QKeyEvent& event) {
    const bool shiftF10 = event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
    if (event.key() != Qt::Key_Menu && !shiftF10)
        return false;
    if (mState->selected < 0)
        return true;
    BringIntoSight(mState->selected);
    WantMenu(mState->selected, CellRect(mState->selected, 0).bottomLeft());
    return true;
}

void c_PicList::WantMenu(int line, QPointF place) {
    const QPointF corner = mState->box->mapTo(&Stage::Get().Area(), QPointF(0, 0));
    Q_EMIT LineRightClicked(line, (ToLogical(corner) + place).toPoint());
}

bool c_PicList::MoveKey(const QKeyEvent& event) {
    const ListLayout layout = Layout();
    const int page = std::max(layout.Lines().height() / layout.LineHeight() - 1, 1);
    const int from = mState->cursor;
    const int last = LineCount() - 1;
    int to = 0;
    switch (event.key()) {
    case Qt::Key_Up:
        to = from - 1;
        break;
    case Qt::Key_Down:
        to = from + 1;
        break;
    case Qt::Key_PageUp:
        to = from - page;
        break;
    case Qt::Key_PageDown:
        to = std::max(from, 0) + page;
        break;
    case Qt::Key_Home:
        break;
    case Qt::Key_End:
        to = last;
        break;
    default:
        return false;
    }
    to = std::min(std::max(to, 0), last);
    if (event.modifiers().testFlag(Qt::ControlModifier) &&
        !event.modifiers().testFlag(Qt::ShiftModifier))
        MoveCursor(to);
    else
        Choose(to, event.modifiers(), true);
    return true;
}

bool c_PicList::Type(const QKeyEvent& event) {
    const bool letter = !event.text().isEmpty() && event.text().front().isPrint();
    const auto others =
        event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier | Qt::GroupSwitchModifier);
    if (!letter || others)
        return false;
    const int column = std::max(mState->sortedColumn, 0);
    // Shift here makes a capital letter, not a range.
    Choose(mState->typeAhead.Find(event.text(), mState->cursor, LineCount(),
                                  [=, this](int line) { return CellText(line, column); }),
           Qt::NoModifier, true);
    return true;
}

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
    const int line = LineAt(ToLogical(event.position()));
    if (event.button() == Qt::LeftButton && line >= 0 && line == mState->selected) {
        Q_EMIT LineDoubleClicked(line);
        return;
    }
    Press(event);
    if (mState->pressed.part == Part::Header)
        Q_EMIT HeaderDoubleClicked(mState->pressed.column);
}

void c_PicList::Move(const QMouseEvent& event) {
    if (!mState->scroller.Held()) {
        PointAt(ToLogical(event.position()));
        return;
    }
    mState->scroller.DragTo(ToLogical(event.position()).y());
    Refresh();
}

void c_PicList::Release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    mState->scroller.Release();
    PointAt(ToLogical(event.position()));
    const ListLayout::Spot pressed = std::exchange(mState->pressed, {});
    Refresh();
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
}

void c_PicList::ForgetPointer() {
    PointAt(QPointF(-1, -1));
    mState->pressed = {};
    mState->scroller.Release();
}
