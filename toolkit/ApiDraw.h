#pragma once

#include "toolkit/Canvas.h"

#include <QString>
#include <Qt>
#include <functional>

class QPainter;

/// Drawing routines that work on one canvas at a time, the one of the open bracket; `Drawing` keeps
/// a bracket open. Coordinates are logical pixels; fractions are rounded to the nearest pixel,
/// halves to the even one. Outside a bracket nothing is drawn.
namespace toolkit {

enum class BkMode { Transparent = 1, Opaque = 2 };

/// Opens the drawing bracket on `dc`. Only one can be open; a second one replaces it.
void BeginDraw(Hdc dc, Qt::PenStyle penStyle, ColorRef penColor, int penWidth, ColorRef brushColor,
               BkMode mode);
/// Closes the bracket.
void EndDraw();

void SetDrawTextColor(ColorRef color);
void SetDrawBrush(ColorRef color);
void SetDrawPen(Qt::PenStyle style, ColorRef color, int width);
void SetDrawBkMode(BkMode mode);
/// Nothing is drawn outside `area` until the bracket is closed.
void SetDrawClip(const QRect& area);

/// Fills the rectangle with the brush, its right and bottom edges excluded.
void FillBox(double x1, double y1, double x2, double y2);

/// Fills the rectangle and frames it: top and left in `light`, bottom and right in `dark`.
void DrawBox(ColorRef light, ColorRef dark, ColorRef fill, double x1, double y1, double x2,
             double y2);

/// Writes `text` with its top left corner at (x, y), over a shadow `offset` pixels to the right and
/// below. The text colour stays set.
void ShadowText(const QString& text, ColorRef color, ColorRef shadow, double x, double y,
                double offset);

/// Writes `text` in the canvas's font with the top left corner of its cell at (x, y).
void PlainText(const QString& text, double x, double y);

void PenMoveTo(double x, double y);
/// Draws a line to (x, y), where the pen then is; its last point is left out.
void PenLineTo(double x, double y);

/// Fills columns x1 to x2 - 1 and rows y1 to y2 with lines at 45 degrees whose colour runs from
/// `start` at the top left to `end` at the bottom right. One column when x1 equals x2.
void GradientBox(double x1, double y1, double x2, double y2, ColorRef start, ColorRef end);

/// Lets `paint` draw, within `area`, what no routine here can: curves, smooth edges, other
/// gradients. It must hold copies of all it needs; see `Canvas::Draw`.
void PaintShapes(const QRect& area, const std::function<void(QPainter&)>& paint);

void PutPixel(int x, int y, ColorRef color);
/// Colour of the pixel, or `Canvas::kNoColor` outside.
ColorRef PeekPixel(int x, int y);

} // namespace toolkit
