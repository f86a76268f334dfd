#pragma once

#include <QColor>
#include <cstdint>

namespace toolkit {

/// A colour as 0x00BBGGRR, red in the low byte.
using ColorRef = std::uint32_t;

constexpr ColorRef Rgb(int red, int green, int blue) {
    return static_cast<ColorRef>(red) | static_cast<ColorRef>(green) << 8 |
           static_cast<ColorRef>(blue) << 16;
}

/// The three components, 0 to 255 each.
struct RgbParts {
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

constexpr RgbParts SplitRgb(ColorRef color) {
    return {static_cast<std::uint8_t>(color), static_cast<std::uint8_t>(color >> 8),
            static_cast<std::uint8_t>(color >> 16)};
}

inline QColor ToQColor(ColorRef color) {
    const RgbParts parts = SplitRgb(color);
    return QColor(parts.red, parts.green, parts.blue);
}

constexpr ColorRef kBlack = Rgb(0, 0, 0);
constexpr ColorRef kWhite = Rgb(255, 255, 255);

} // namespace toolkit
