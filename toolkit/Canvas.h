#pragma once

#include "toolkit/ColorRef.h"

#include <QFont>
#include <QImage>
#include <QRect>
#include <QString>

class QPainter;

namespace toolkit {

/// What forms, picture boxes and surfaces draw on: a persistent 32-bit image, measured in logical
/// pixels. The only class that knows how many screen pixels there are to a logical pixel.
class Canvas {
public:
    /// A black canvas of `width` x `height` logical pixels.
    Canvas(int width, int height);

    /// A canvas that shows `picture`; see `SetPicture`.
    explicit Canvas(const QImage& picture);

    int Width() const { return mWidth; }
    int Height() const { return mHeight; }

    /// The canvas as an image; its device pixel ratio is set.
    const QImage& Image() const { return mImage; }

    /// Shows the canvas at a widget's top left corner.
    void Show(QPainter& painter) const;

    /// For painters, which then draw in logical pixels.
    QImage& PaintDevice() { return mImage; }

    /// Makes `picture` the content. Its pixels are the canvas's pixels on the screen: the canvas
    /// takes the picture's size, divided by the ratio.
    void SetPicture(const QImage& picture);

    const QFont& Font() const { return mFont; }
    void SetFont(const QFont& font) { mFont = font; }

    /// Width of `text` in the canvas's font.
    double TextWidth(const QString& text) const;

    /// Height of a line of text in the canvas's font.
    double TextHeight() const;

    /// Colour of the pixel, or `kNoColor` outside.
    ColorRef Pixel(int x, int y) const;

    /// Fills the part of `area` that lies on the canvas.
    void Fill(const QRect& area, ColorRef color);

    /// The screen pixels that `area` covers; adjacent areas neither overlap nor leave a gap.
    static QRect ScreenPixels(const QRect& area);

    static double Ratio();
    /// Sets the screen pixels per logical pixel of every canvas made from now on.
    static void SetRatio(double ratio);

    static constexpr ColorRef kNoColor = 0xFFFFFFFF;

private:
    QImage mImage;
    int mWidth;
    int mHeight;
    QFont mFont;
};

/// Handle to a canvas; null draws nothing.
using Hdc = Canvas*;

/// The font of the program's screens; `points` are 1/72 inch at 96 pixels an inch.
QFont ScreenFont(double points, bool bold = false);

enum class RasterOp : std::uint32_t {
    SrcCopy = 0x00CC0020,
    SrcAnd = 0x008800C6,
    SrcPaint = 0x00EE0086,
};

/// Combines `width` x `height` pixels from (sourceX, sourceY) of `source` into `target` at (x, y).
/// Anything outside either of them is left out. The two must be different canvases.
void BitBlt(Hdc target, int x, int y, int width, int height, Hdc source, int sourceX, int sourceY,
            RasterOp operation);

/// A copy by mask: SrcAnd of the mask and SrcPaint of the sprite in one pass, both taken from
/// (sourceX, sourceY).
void DrawMasked(Hdc target, int x, int y, int width, int height, Hdc mask, Hdc sprite, int sourceX,
                int sourceY);

} // namespace toolkit
