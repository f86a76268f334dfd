#pragma once

#include "toolkit/DragStart.h"

#include <Qt>

class QMouseEvent;
class QWidget;

namespace toolkit {

/// Lets the player move a borderless window by its background and resize it by its edges, unless it
/// fills the screen. The window forwards its events.
class WindowGrip {
public:
    explicit WindowGrip(QWidget& window) : mWindow(window) {}

    void Press(const QMouseEvent& event);
    void Move(const QMouseEvent& event);
    void Release();
    /// The mouse has come to the window.
    void Enter() { FitAfterResize(); }

private:
    Qt::Edges EdgesAt(QPointF place) const;
    void FitAfterResize();

    QWidget& mWindow;
    DragStart mDragStart;  // by the ground
    bool mResized = false; // by an edge; to be fitted
};

} // namespace toolkit
