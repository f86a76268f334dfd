#include "tools/songs/voices/Sustained.h"

namespace songs {

void Brass(const Tone& tone, std::span<float> out) {
    static const Wave kSoft = Wave::Falling(4, 1.5);
    static const Wave kStrong = Wave::Falling(14, 1.05);
    PlaySustained({.soft = kSoft,
                   .strong = kStrong,
                   .rise = 0.055,
                   .fall = 0.08,
                   .vibrato = 0.0035,
                   .detune = 0.0015},
                  tone, out);
}

} // namespace songs
