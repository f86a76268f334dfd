#pragma once

#include <QRect>

class QPainter;

namespace toolkit {

/// Paints the program's background into `area` of a window and carries its edges on over the rest
/// of `whole`, darker and darker. Qt's pixels.
void PaintGround(QPainter& painter, const QRect& whole, const QRect& area);

} // namespace toolkit
