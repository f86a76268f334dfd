#pragma once

#include "toolkit/ApiDraw.h"
#include "toolkit/Palette.h"

#include <initializer_list>

namespace toolkit {

/// A drawing on one canvas, from `BeginDraw` to `EndDraw`. It must end before the next one begins.
/// Coordinates are those of ApiDraw.
class Drawing {
public:
    explicit Drawing(Hdc dc);
    ~Drawing() { EndDraw(); }
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    Hdc Dc() const { return mDc; }

    /// Draws nothing outside `area` from now on.
    void SetClip(const QRect& area) { SetDrawClip(area); }

    /// Fills the rectangle, its right and bottom edges excluded.
    void Fill(ColorRef color, double x1, double y1, double x2, double y2);

    /// Fills all of `area` and frames it inside.
    void Box(const Bevel& look, const QRect& area);

    /// See `GradientBox`.
    void Gradient(double x1, double y1, double x2, double y2, ColorRef start, ColorRef end);

    /// Joins the points by lines `width` pixels wide.
    void Lines(ColorRef color, int width, std::initializer_list<QPoint> points);

    /// Writes `text` with the top left corner of its cell at (x, y).
    void Text(const QString& text, ColorRef color, double x, double y);

    /// The same over a shadow `offset` pixels right and down.
    void Text(const QString& text, ColorRef color, ColorRef shadow, double x, double y,
              double offset);

    /// See `PaintShapes`.
    void Shapes(const QRect& area, const std::function<void(QPainter&)>& paint) {
        PaintShapes(area, paint);
    }

private:
    Hdc mDc;
};

/// Covers a canvas with the framed panel that the small windows of the program have.
void DrawPanel(Hdc dc);

} // namespace toolkit
