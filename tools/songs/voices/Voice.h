#pragma once

#include <span>
#include <string_view>

namespace songs {

/// A note to be sounded.
struct Tone {
    double hertz = 0;
    double seconds = 0; ///< until it is let go; it may ring on
    float loudness = 1;
};

/// Adds the tone to `out`, from its first sample on. What does not fit is left out. Voices need not
/// be equally loud: parts are levelled when they are mixed.
using Voice = void (*)(const Tone& tone, std::span<float> out);

void Accordion(const Tone& tone, std::span<float> out);
void Bells(const Tone& tone, std::span<float> out);
void Brass(const Tone& tone, std::span<float> out);
void Clarinet(const Tone& tone, std::span<float> out);
void Flute(const Tone& tone, std::span<float> out);
void Harpsichord(const Tone& tone, std::span<float> out);
void Marimba(const Tone& tone, std::span<float> out);
void MusicBox(const Tone& tone, std::span<float> out);
void Organ(const Tone& tone, std::span<float> out);
void Piano(const Tone& tone, std::span<float> out);
void Pluck(const Tone& tone, std::span<float> out);
void Strings(const Tone& tone, std::span<float> out);

/// The voice that scores call `name`, in lower case; nullptr if there is none.
Voice FindVoice(std::string_view name);

} // namespace songs
