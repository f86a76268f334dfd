#pragma once

#include <QPainterPath>
#include <QRectF>

namespace toolkit {

/// The rectangle with its corners cut off, `cut` long each way: the outline that plain buttons,
/// text boxes and panels share.
QPainterPath CutPath(const QRectF& area, double cut);

/// The cut of the forms that do not fill the stage, in logical pixels.
constexpr double kPanelCut = 12;

} // namespace toolkit
