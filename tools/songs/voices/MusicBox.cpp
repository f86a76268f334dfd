#include "tools/songs/voices/Struck.h"

#include <array>

namespace songs {

void MusicBox(const Tone& tone, std::span<float> out) {
    static const Wave kTooth{std::array{1.0F, 0.12F, 0.0F, 0.3F}};
    static const Wave kSine{std::array{1.0F}};
    const Ring rings[] = {
        {kTooth, 1.0, 1.0F, 1.6},
        {kSine, 2.004, 0.5F, 1.2}, // most teeth are heard an octave higher
        {kSine, 6.27, 0.2F, 0.35},
        {kSine, 11.3, 0.08F, 0.1},
    };
    PlayStruck(rings, 1.4, tone, out);
}

} // namespace songs
