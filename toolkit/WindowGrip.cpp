#include "toolkit/WindowGrip.h"

#include "toolkit/Mous.h"
#include "toolkit/StageSize.h"

#include <QMouseEvent>
#include <QWidget>
#include <utility>

namespace toolkit {

namespace {

Qt::CursorShape CursorOf(Qt::Edges edges) {
    const bool falling =
        edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge);
    const bool sideways = (edges & (Qt::LeftEdge | Qt::RightEdge)) != 0;
    const bool upright = (edges & (Qt::TopEdge | Qt::BottomEdge)) != 0;
    if (sideways && upright)
        return falling ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
    if (sideways)
        return Qt::SizeHorCursor;
    return upright ? Qt::SizeVerCursor : Qt::ArrowCursor;
}

} // namespace

Qt::Edges WindowGrip::EdgesAt(QPointF place) const {
    constexpr int kGrip = 6;
    Qt::Edges edges;
    if (mWindow.windowState() & (Qt::WindowFullScreen | Qt::WindowMaximized))
        return edges;
    const QPoint point = mWindow.mapFromGlobal(place.toPoint());
    edges.setFlag(Qt::LeftEdge, point.x() < kGrip);
    edges.setFlag(Qt::RightEdge, point.x() >= mWindow.width() - kGrip);
    edges.setFlag(Qt::TopEdge, point.y() < kGrip);
    edges.setFlag(Qt::BottomEdge, point.y() >= mWindow.height() - kGrip);
    return edges;
}

void WindowGrip::Press(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton || mWindow.isFullScreen())
        return;
    const Qt::Edges edges = EdgesAt(event.globalPosition());
    if (edges) {
        mResized = true;
        DragWindow(mWindow, edges);
    } else {
        mDragStart.Press(event.globalPosition());
    }
}

void WindowGrip::Move(const QMouseEvent& event) {
    if (event.buttons() == Qt::NoButton) {
        FitAfterResize();
        mWindow.setCursor(CursorOf(EdgesAt(event.globalPosition())));
    } else if (mDragStart.Begins(event.globalPosition())) {
        DragWindow(mWindow);
    }
}

void WindowGrip::Release() {
    mDragStart.Release();
    FitAfterResize();
}

/// Window managers do not report the end of a resize, but the mouse then comes back to the window.
void WindowGrip::FitAfterResize() {
    if (!std::exchange(mResized, false) || mWindow.isFullScreen() || mWindow.isMaximized())
        return;
    mWindow.resize(FittedSize(mWindow.size()));
}

} // namespace toolkit
