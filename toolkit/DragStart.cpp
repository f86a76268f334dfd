#include "toolkit/DragStart.h"

#include <QApplication>

namespace toolkit {

bool DragStart::Begins(QPointF place) {
    const bool begins =
        mPress && (place - *mPress).manhattanLength() >= QApplication::startDragDistance();
    if (begins)
        mPress.reset();
    return begins;
}

} // namespace toolkit
