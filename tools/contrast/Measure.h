#pragma once

#include <QImage>
#include <QRect>
#include <QRgb>

#include <optional>

namespace contrast {

/// How a text stands on its ground, as contrast ratios.
struct Contrast {
    double worst;   ///< where a tenth of the ground is no better
    double typical; ///< the median
};

/// How a text is written.
struct Hand {
    QRgb color;
    double points; ///< of 96 to 72 pixels
    int shadow;    ///< how many pixels to the right and below its shadow lies, 0 for none
};

/// Measures the text within `area` of the picture against the ground around its glyphs. The ground
/// is what lies close to them and is neither glyph nor softened edge nor shadow.
/// Nothing if the area has no such text, or no ground that could be told from it.
std::optional<Contrast> Measure(const QImage& picture, const QRect& area, const Hand& hand);

} // namespace contrast
