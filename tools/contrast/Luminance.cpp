#include "tools/contrast/Luminance.h"

#include <algorithm>
#include <cmath>

namespace contrast {

namespace {

double Linear(int channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

} // namespace

double Luminance(QRgb color) {
    return 0.2126 * Linear(qRed(color)) + 0.7152 * Linear(qGreen(color)) +
           0.0722 * Linear(qBlue(color));
}

double Ratio(double one, double other) {
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

double Limit(double points) { return points >= 18 ? 3 : 4.5; }

} // namespace contrast
