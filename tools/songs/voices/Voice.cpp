#include "tools/songs/voices/Voice.h"

#include <algorithm>
#include <array>

namespace songs {

Voice FindVoice(std::string_view name) {
    struct Entry {
        std::string_view name;
        Voice voice;
    };
    constexpr std::array<Entry, 12> kVoices = {{
        {"accordion", Accordion},
        {"bells", Bells},
        {"brass", Brass},
        {"clarinet", Clarinet},
        {"flute", Flute},
        {"harpsichord", Harpsichord},
        {"marimba", Marimba},
        {"musicbox", MusicBox},
        {"organ", Organ},
        {"piano", Piano},
        {"pluck", Pluck},
        {"strings", Strings},
    }};
    const auto found = std::ranges::find(kVoices, name, &Entry::name);
    return found == kVoices.end() ? nullptr : found->voice;
}

} // namespace songs
