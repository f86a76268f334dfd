#include "tools/songs/voices/Struck.h"

#include <array>

namespace songs {

void Bells(const Tone& tone, std::span<float> out) {
    static const Wave kSine{std::array{1.0F}};
    const Ring rings[] = {
        {kSine, 1.0, 1.0F, 2.2},   {kSine, 1.0015, 0.3F, 2.6}, {kSine, 2.0, 0.2F, 1.5},
        {kSine, 3.01, 0.25F, 0.9}, {kSine, 5.4, 0.12F, 0.45},  {kSine, 8.9, 0.06F, 0.2},
    };
    PlayStruck(rings, 1.2, tone, out);
}

} // namespace songs
