#include "library/PlaylistFormat.h"

#include "platform/LeadingNumber.h"
#include "platform/Rounding.h"
#include "platform/Text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <iterator>
#include <limits>

namespace library {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kHeaderLine = "#EXTM3U";
constexpr std::string_view kHeader = "#EXTM3U\r\n";
constexpr std::string_view kMarkTag = "#Songrush:";
constexpr std::string_view kLengthTag = " bytes=";
constexpr bool kBackslashSeparates = std::filesystem::path::preferred_separator == '\\';
constexpr std::string_view kTextControls = "\t\n\r\x1A"; // \x1A: end of file, in old texts

/// A mark too big for its type need only stay different from 0.
std::int16_t MarkFromText(std::string_view text) {
    if (text == "0" || text == "1") // nearly always
        return text == "1" ? 1 : 0;
    using Limits = std::numeric_limits<std::int16_t>;
    const double number =
        std::clamp<double>(platform::LeadingNumber(text), Limits::min(), Limits::max());
    return static_cast<std::int16_t>(platform::RoundHalfEven(number));
}

/// `text` as a number of bytes; 0 if it is anything else.
std::size_t LengthFromText(std::string_view text) {
    std::size_t length = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, length);
    return error == std::errc() && stop == end ? length : 0;
}

/// Whether reading a plain line would not give the path back.
bool NeedsLength(std::string_view path) {
    if (path.empty())
        return false; // names no file, so it need not come back
    return path.size() == 1 || path.front() == '#' || path.front() == ' ' || path.back() == ' ' ||
           path.find(kLineEnd) != std::string_view::npos || IsAddress(path);
}

template <typename Number> void AppendNumber(std::string& file, Number number) {
    char digits[24];
    const auto [end, error] = std::to_chars(std::begin(digits), std::end(digits), number);
    file.append(digits, end);
}

} // namespace

std::optional<PlaylistEntry> PlaylistReader::Next() {
    std::int16_t played = 0;
    bool marked = false; // by the line before
    while (!mRest.empty()) {
        const std::string_view line = TakeLine();
        if (mWatches)
            Watch(line, marked);
        marked = line.starts_with(kMarkTag);
        if (line.size() < 2)
            continue;
        if (line.front() != '#') {
            const std::string_view path = platform::TrimBlanks(line);
            if (!path.empty())
                return PlaylistEntry{path, played};
            continue;
        }
        if (!marked && line.find(kMarkTag) == std::string_view::npos)
            continue;
        // The mark is read from here even if the tag stands further on in the line.
        const std::string_view markText = line.substr(kMarkTag.size());
        played = MarkFromText(markText);
        const auto path = marked ? TakeMeasuredPath(markText) : std::nullopt;
        if (path)
            return PlaylistEntry{*path, played};
    }
    return std::nullopt;
}

bool PlaylistReader::FindsForeign(std::string_view bytes) {
    PlaylistReader reader(bytes);
    reader.mWatches = true;
    while (!reader.mSawForeign && reader.Next()) {
    }
    return reader.mSawForeign;
}

/// A path that the program wrote follows its mark and may hold other line ends, or a "\" that is
/// not a separator.
void PlaylistReader::Watch(std::string_view line, bool marked) {
    const bool comment = line.starts_with('#');
    const bool otherEnds = line.find('\n') != line.npos || line.find('\r') != line.npos;
    const bool otherComment = comment && line != kHeaderLine && line.find(kMarkTag) == line.npos;
    const bool otherPath =
        !marked && !comment && !kBackslashSeparates && line.find('\\') != line.npos;
    if ((otherEnds && (comment || !marked)) || otherComment || otherPath ||
        IsAddress(platform::TrimBlanks(line)))
        mSawForeign = true;
}

std::string_view PlaylistReader::TakeLine() {
    const std::size_t end = mRest.find(kLineEnd);
    const std::string_view line = mRest.substr(0, end);
    mRest.remove_prefix(end == std::string_view::npos ? mRest.size() : end + kLineEnd.size());
    return line;
}

std::optional<std::string_view> PlaylistReader::TakeMeasuredPath(std::string_view markText) {
    const std::size_t tag = markText.find(kLengthTag);
    if (tag == std::string_view::npos)
        return std::nullopt;
    const std::size_t length = LengthFromText(markText.substr(tag + kLengthTag.size()));
    if (length == 0 || length > mRest.size())
        return std::nullopt;
    const std::string_view path = mRest.substr(0, length);
    const std::string_view after = mRest.substr(length);
    if (!after.empty() && !after.starts_with(kLineEnd))
        return std::nullopt;
    mRest = after.substr(std::min(kLineEnd.size(), after.size()));
    return path;
}

bool IsAddress(std::string_view line) {
    const std::size_t scheme = line.find("://");
    const auto isOfScheme = [](unsigned char c) {
        return std::isalnum(c) != 0 || c == '+' || c == '-' || c == '.';
    };
    // A single letter is a drive.
    return scheme != line.npos && scheme > 1 &&
           std::all_of(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(scheme),
                       isOfScheme);
}

bool IsPlaylistText(std::string_view bytes) {
    if (bytes.find('\0') != std::string_view::npos)
        return false;
    // The paths of the program's own lists may hold any other byte.
    if (bytes.starts_with(kHeader) && bytes.substr(kHeader.size()).starts_with(kMarkTag))
        return true;
    return std::none_of(bytes.begin(), bytes.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' &&
               kTextControls.find(c) == std::string_view::npos;
    });
}

void AppendHeader(std::string& file) { file += kHeader; }

void AppendEntry(std::string& file, const PlaylistEntry& entry) {
    file += kMarkTag;
    AppendNumber(file, entry.played);
    if (NeedsLength(entry.path)) {
        file += kLengthTag;
        AppendNumber(file, entry.path.size());
    }
    ((file += kLineEnd) += entry.path) += kLineEnd;
}

} // namespace library
