#pragma once

#include <string_view>
#include <vector>

namespace songs {

/// The text without blanks at its ends.
std::string_view Trimmed(std::string_view text);

/// The words of a line, which blanks part.
std::vector<std::string_view> Words(std::string_view line);

/// The trimmed parts of a text between the separators.
std::vector<std::string_view> Parts(std::string_view text, char separator);

} // namespace songs
