#include "tools/songs/voices/Voice.h"

#include <algorithm>
#include <array>

namespace songs {

Voice FindVoice(std::string_view name) {
    struct Entry {
        std::string_view name;
        Voice voice;
    };
    constexpr std::array<Entry, 7> kVoices = {{
        {"bells", Bells},
        {"brass", Brass},
        {"flute", Flute},
        {"organ", Organ},
        {"piano", Piano},
        {"pluck", Pluck},
        {"strings", Strings},
    }};
    const auto found = std::ranges::find(kVoices, name, &Entry::name);
    return found == kVoices.end() ? nullptr : found->voice;
}

} // namespace songs
