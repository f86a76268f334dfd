#pragma once

#include <QPoint>
#include <QRect>

class QWidget;

/// Where controls lie on the stage: in logical pixels of what they lie on, whatever size the stage
/// is shown at.
namespace toolkit {

/// Qt's pixels per logical pixel.
double StageScale();

/// Puts a control at a place of its form, or a form at a place of the stage.
void Put(QWidget& control, const QRect& place);

/// Where a control was put; empty if it was not.
QRect PlaceOf(const QWidget& control);

/// Gives a control the program's font in a size other than `kControlFont`, in points.
void SetFontPoints(QWidget& control, double points);
constexpr double kControlFont = 11;

/// Gives all other controls their font, at the current scale.
void SetControlFonts();

/// Qt's pixels as logical ones, and the reverse; adjacent areas neither overlap nor leave a gap.
QPointF ToLogical(QPointF pixels);
QRect FromLogical(const QRect& area);

/// Shows everything that lies on `area` at another scale.
void Rescale(QWidget& area, double scale);

} // namespace toolkit
