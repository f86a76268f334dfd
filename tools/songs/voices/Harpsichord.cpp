#include "tools/songs/voices/Struck.h"

namespace songs {

void Harpsichord(const Tone& tone, std::span<float> out) {
    static const Wave kString = Wave::Falling(20, 0.9);
    const Ring rings[] = {
        {kString, 1.0, 1.0F, 2.4},
        {kString, 1.0008, 0.5F, 1.9},
        {kString, 2.0, 0.3F, 1.3}, // the stop an octave higher
    };
    PlayStruck(rings, 0.15, tone, out);
}

} // namespace songs
