#include "tools/songs/voices/Struck.h"

#include <array>
#include <cmath>

namespace songs {

void Marimba(const Tone& tone, std::span<float> out) {
    static const Wave kSine{std::array{1.0F}};
    const double length = std::pow(440 / tone.hertz, 0.6); // low bars ring longer
    const Ring rings[] = {
        {kSine, 1.0, 1.0F, 1.1 * length},
        {kSine, 3.93, 0.35F, 0.3 * length},
        {kSine, 9.2, 0.15F, 0.08},
    };
    PlayStruck(rings, 1.0, tone, out);
}

} // namespace songs
