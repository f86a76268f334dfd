#include "tools/songs/voices/Struck.h"

#include <array>
#include <cmath>

namespace songs {

void Piano(const Tone& tone, std::span<float> out) {
    static const Wave kLow{std::array{1.0F, 0.45F}};
    static const Wave kMiddle{std::array{0.0F, 0.0F, 0.35F, 0.2F, 0.14F}};
    static const Wave kHigh{
        std::array{0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.1F, 0.0F, 0.07F, 0.05F, 0.03F, 0.02F}};
    const double length = std::pow(440 / tone.hertz, 0.4); // low strings ring longer
    const Ring rings[] = {
        {kLow, 0.9997, 0.5F, 4.5 * length},
        {kLow, 1.0004, 0.5F, 5.0 * length},
        {kMiddle, 1.0005, 1.0F, 2.2 * length},
        {kHigh, 1.001, 1.0F, 0.9 * length},
    };
    PlayStruck(rings, 0.35, tone, out);
}

} // namespace songs
