#pragma once

#include <QPointF>
#include <optional>

namespace toolkit {

/// Tells a drag from a click: it begins as far from the place of the press as the desktop wants.
class DragStart {
public:
    /// The button was pressed, at a place on the screen.
    void Press(QPointF place) { mPress = place; }
    void Release() { mPress.reset(); }

    /// Whether the drag begins with the pointer's move to `place`; true once for a press.
    bool Begins(QPointF place);

private:
    std::optional<QPointF> mPress;
};

} // namespace toolkit
