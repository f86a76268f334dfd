#include "tools/songs/voices/Sustained.h"

#include <array>

namespace songs {

void Clarinet(const Tone& tone, std::span<float> out) {
    static const Wave kSoft{std::array{1.0F, 0.02F, 0.25F, 0.01F, 0.06F}};
    static const Wave kStrong{
        std::array{1.0F, 0.05F, 0.6F, 0.06F, 0.35F, 0.08F, 0.2F, 0.08F, 0.1F, 0.05F, 0.05F}};
    PlaySustained({.soft = kSoft,
                   .strong = kStrong,
                   .rise = 0.045,
                   .fall = 0.09,
                   .vibrato = 0.0015,
                   .breath = 0.04F},
                  tone, out);
}

} // namespace songs
