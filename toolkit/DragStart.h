#pragma once

#include <QPointF>
#include <optional>

namespace toolkit {

/// Tells a drag from a click: a drag begins once the pointer is as far from the press as the
/// desktop says.
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
