#pragma once

#include "toolkit/ColorRef.h"

#include <QFont>
#include <QImage>
#include <QRect>
#include <QString>
#include <functional>
#include <memory>

class QPainter;
class QPainterPath;

namespace toolkit {

struct Recipe;

enum class RasterOp : std::uint32_t {
    SrcCopy = 0x00CC0020,
    SrcAnd = 0x008800C6,
    SrcPaint = 0x00EE0086,
};

/// What forms, picture boxes and surfaces draw on: a persistent 32-bit image, measured in logical
/// pixels. The only class that knows how many screen pixels there are to a logical pixel. It
/// remembers what was drawn, so that it can redraw it at any ratio.
class Canvas {
public:
    /// A black canvas of `width` x `height` logical pixels.
    Canvas(int width, int height);
    ~Canvas();
    Canvas(const Canvas& other);
    Canvas& operator=(const Canvas& other);

    int Width() const;
    int Height() const;

    /// The canvas as an image of screen pixels; its device pixel ratio is `Ratio()`, or 1 if that
    /// is less.
    const QImage& Image() const;

    /// Shows the canvas at a widget's top left corner, a pixel of the image on a pixel of the
    /// screen.
    void Show(QPainter& painter) const;
    /// The same within an outline, which is smooth. Qt's pixels.
    void Show(QPainter& painter, const QPainterPath& outline) const;

    /// Draws on an image of screen pixels. Holds copies of all it needs, because it is called again
    /// when the ratio has changed.
    using Paint = std::function<void(QImage&)>;

    /// Draws with `paint`, which changes nothing outside `area` (logical pixels). `covers` says
    /// that it leaves nothing of what the area showed before.
    void Draw(const QRect& area, bool covers, Paint paint);

    /// Makes a picture of `size` logical pixels the content. `load` returns its screen pixels at
    /// the current ratio.
    void SetPicture(const QSize& size, const std::function<QImage()>& load);

    /// Lets go of the pixels, which are redrawn when they are next needed.
    void Forget();

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

    /// Screen pixels per logical pixel.
    static double Ratio();
    /// Sets the ratio of all canvases.
    static void SetRatio(double ratio);

    static constexpr ColorRef kNoColor = 0xFFFFFFFF;

private:
    friend void BitBlt(Canvas*, int, int, int, int, Canvas*, int, int, RasterOp);
    friend void DrawMasked(Canvas*, int, int, int, int, Canvas*, Canvas*, int, int);

    std::shared_ptr<Recipe> mRecipe;
    QFont mFont;
};

/// Handle to a canvas; null draws nothing.
using Hdc = Canvas*;

/// The font of the board and the scores; `points` are 1/72 inch at 96 pixels an inch.
QFont ScreenFont(double points, bool bold = false);

/// The font of everything else: rounded, as the logo's letters are. Pass `bold` instead of calling
/// `QFont::setBold`, which would only smear it.
QFont RoundFont(double points, bool bold = false);

/// Fills the part of `area` (logical pixels) that lies on an image of screen pixels.
void FillPixels(QImage& image, const QRect& area, ColorRef color);

/// Combines `width` x `height` pixels from (sourceX, sourceY) of `source` into `target` at (x, y).
/// Anything outside either of them is left out. The two must be different canvases.
void BitBlt(Hdc target, int x, int y, int width, int height, Hdc source, int sourceX, int sourceY,
            RasterOp operation);

/// A copy by mask: SrcAnd of the mask and SrcPaint of the sprite in one pass, both taken from
/// (sourceX, sourceY).
void DrawMasked(Hdc target, int x, int y, int width, int height, Hdc mask, Hdc sprite, int sourceX,
                int sourceY);

} // namespace toolkit
