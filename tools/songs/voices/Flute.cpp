#include "tools/songs/voices/Sustained.h"

#include <array>

namespace songs {

void Flute(const Tone& tone, std::span<float> out) {
    static const Wave kSoft{std::array{1.0F, 0.1F}};
    static const Wave kStrong{std::array{1.0F, 0.4F, 0.15F, 0.05F, 0.02F}};
    PlaySustained({.soft = kSoft,
                   .strong = kStrong,
                   .rise = 0.06,
                   .fall = 0.1,
                   .vibrato = 0.005,
                   .breath = 0.12F},
                  tone, out);
}

} // namespace songs
