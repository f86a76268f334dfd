#include "tools/songs/voices/Sustained.h"

namespace songs {

void Strings(const Tone& tone, std::span<float> out) {
    static const Wave kSoft = Wave::Falling(8, 1.4);
    static const Wave kStrong = Wave::Falling(12, 1.2);
    PlaySustained({.soft = kSoft,
                   .strong = kStrong,
                   .rise = 0.09,
                   .fall = 0.22,
                   .vibrato = 0.0035,
                   .detune = 0.0035},
                  tone, out);
}

} // namespace songs
