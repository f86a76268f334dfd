#pragma once

#include <QRgb>

namespace contrast {

/// Relative luminance of an sRGB colour after WCAG 2: 0 (black) to 1 (white).
double Luminance(QRgb color);

/// Contrast ratio of two luminances after WCAG 2: 1 (the same) to 21 (black and white).
double Ratio(double one, double other);

/// The ratio that a text needs: 3 from 18 points on, 4.5 below.
double Limit(double points);

} // namespace contrast
