#include "tools/songs/voices/Sustained.h"

#include <array>

namespace songs {

void Organ(const Tone& tone, std::span<float> out) {
    static const Wave kPipes{std::array{0.6F, 0.5F, 0.25F, 0.25F, 0.0F, 0.12F, 0.0F, 0.1F}};
    PlaySustained({.soft = kPipes,
                   .strong = kPipes,
                   .rise = 0.025,
                   .fall = 0.09,
                   .vibrato = 0.0008,
                   .detune = 0.0022},
                  tone, out);
}

} // namespace songs
