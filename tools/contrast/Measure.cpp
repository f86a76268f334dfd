#include "tools/contrast/Measure.h"

#include "tools/contrast/Luminance.h"
#include "tools/contrast/Mask.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace contrast {

namespace {

constexpr int kSame = 12;     // of 255: what a glyph covers wholly has its colour
constexpr int kEdge = 2;      // pixels around a glyph that may be softened
constexpr int kNear = 8;      // pixels around a glyph that are the ground close by
constexpr int kLeastInk = 12; // fewer pixels are no text
constexpr int kLeastGround = 40;

/// Whether every channel is nearer to `goal` than to `start`.
bool IsNearer(QRgb color, QRgb goal, QRgb start) {
    const auto isNearer = [](int value, int to, int from) {
        return std::abs(value - to) <= std::max(std::abs(to - from) / 2, kSame);
    };
    return isNearer(qRed(color), qRed(goal), qRed(start)) &&
           isNearer(qGreen(color), qGreen(goal), qGreen(start)) &&
           isNearer(qBlue(color), qBlue(goal), qBlue(start));
}

/// What is nearer to the text's colour than to `start` and as thin as its strokes. A patch of
/// ground that resembles the text stays ground.
Mask Glyphs(const QImage& picture, const Hand& hand, QRgb start) {
    constexpr double kThickest = 0.3 * 96 / 72; // stroke, of the points
    Mask alike(picture.size());
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (IsNearer(picture.pixel(x, y), hand.color, start))
                alike.Add(x, y);
        }
    }
    return alike.Without(alike.Thick(int(std::ceil(hand.points * kThickest))));
}

/// The pixels close around the glyphs that are neither glyph nor edge nor shadow.
std::vector<QRgb> Ground(const QImage& picture, const Mask& glyphs, int shadow) {
    const Mask close = glyphs.Grown(kNear);
    const Mask edge = glyphs.Grown(kEdge);
    const Mask cast = edge.Moved(shadow);
    std::vector<QRgb> ground;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (close.Has(x, y) && !edge.Has(x, y) && !cast.Has(x, y))
                ground.push_back(picture.pixel(x, y));
        }
    }
    return ground;
}

QRgb Median(std::vector<QRgb> colors) {
    const auto middle = colors.begin() + std::ptrdiff_t(colors.size() / 2);
    std::nth_element(colors.begin(), middle, colors.end(),
                     [](QRgb one, QRgb other) { return Luminance(one) < Luminance(other); });
    return *middle;
}

std::vector<double> Ratios(const std::vector<QRgb>& ground, QRgb text) {
    std::vector<double> ratios;
    for (const QRgb pixel : ground)
        ratios.push_back(Ratio(Luminance(text), Luminance(pixel)));
    std::sort(ratios.begin(), ratios.end());
    return ratios;
}

} // namespace

std::optional<Contrast> Measure(const QImage& picture, const QRect& area, const Hand& hand) {
    if (!picture.rect().contains(area))
        return std::nullopt;
    const QImage part = picture.copy(area);
    const Mask covered = Glyphs(part, hand, hand.color); // wholly, which thin strokes never are
    if (covered.Count() < kLeastInk)
        return std::nullopt;
    const std::vector<QRgb> first = Ground(part, covered, hand.shadow);
    if (first.size() < kLeastGround)
        return std::nullopt;
    const Mask glyphs = covered.With(Glyphs(part, hand, Median(first)));
    const std::vector<QRgb> ground = Ground(part, glyphs, hand.shadow);
    if (ground.size() < kLeastGround)
        return std::nullopt;
    const std::vector<double> ratios = Ratios(ground, hand.color);
    return Contrast{ratios[ratios.size() / 10], ratios[ratios.size() / 2]};
}

} // namespace contrast
