// Events and keyboard input of a picture list.

#include "toolkit/Stage.h"
#include "toolkit/c_PicListState.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>

using namespace toolkit;

bool c_PicList::eventFilter(QObject* box, QEvent* event) {
    if (box != mState->box)
        return false;
    switch (event->type()) {
    case QEvent::Paint:
        if (mState->dirty)
            Draw();
        return false;
    case QEvent::FocusOut:
        EndLineDrag();
        Refresh();
        return false;
    case QEvent::FocusIn:
    case QEvent::Resize:
        Refresh();
        return false;
    case QEvent::Leave:
        PointAt(QPointF(-1, -1));
        return false;
    case QEvent::Hide:
        ForgetPointer();
        return false;
    case QEvent::ToolTip:
        ShowWhole(*static_cast<QHelpEvent*>(event));
        return true;
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
    if (!mState->dragged.empty()) {
        if (event.key() == Qt::Key_Escape)
            EndLineDrag();
        return true; // another key might change the lines
    }
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
        return MenuKey(event) || MoveLinesKey(event) || MoveKey(event) || Type(event);
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

bool c_PicList::MoveLinesKey(const QKeyEvent& event) {
    const bool up = event.key() == Qt::Key_Up;
    if (!event.modifiers().testFlag(Qt::AltModifier) || (!up && event.key() != Qt::Key_Down))
        return false;
    const std::vector<int> lines = ChosenLines();
    if (!lines.empty())
        WantLinesMoved(lines, up ? std::max(lines.front() - 1, 0)
                                 : std::min(lines.back() + 2, LineCount()));
    return true;
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
