#pragma once

#include <QPainterPath>
#include <QRectF>

namespace toolkit {

/// The rectangle without its corners, of which `cut` goes each way: the outline that plain buttons,
/// text boxes and panels share.
QPainterPath CutPath(const QRectF& area, double cut);

/// Of the forms that do not fill the stage, in logical pixels.
constexpr double kPanelCut = 12;

} // namespace toolkit
