#include "tools/songs/voices/Sustained.h"

namespace songs {

void Accordion(const Tone& tone, std::span<float> out) {
    static const Wave kSoft = Wave::Falling(10, 1.2);
    static const Wave kReeds = Wave::Falling(18, 0.9);
    PlaySustained({.soft = kSoft,
                   .strong = kReeds,
                   .rise = 0.035,
                   .fall = 0.06,
                   .vibrato = 0.0006,
                   .detune = 0.007},
                  tone, out);
}

} // namespace songs
