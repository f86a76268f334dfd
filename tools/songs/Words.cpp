#include "tools/songs/Words.h"

#include <algorithm>

namespace songs {

namespace {
constexpr std::string_view kBlanks = " \t\r";
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string_view> Words(std::string_view line) {
    std::vector<std::string_view> words;
    for (line = Trimmed(line); !line.empty(); line = Trimmed(line)) {
        const std::size_t end = std::min(line.find_first_of(kBlanks), line.size());
        words.push_back(line.substr(0, end));
        line.remove_prefix(end);
    }
    return words;
}

std::vector<std::string_view> Parts(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = std::min(text.find(separator), text.size());
        parts.push_back(Trimmed(text.substr(0, end)));
        if (end == text.size())
            return parts;
        text.remove_prefix(end + 1);
    }
}

} // namespace songs
