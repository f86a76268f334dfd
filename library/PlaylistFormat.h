#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace library {

/// One song of a playlist file: its path, byte for byte, and its played mark (0 is not played).
struct PlaylistEntry {
    std::string_view path;
    std::int16_t played = 0;
};

/// Goes through the entries of a playlist file: M3U text in lines that end with CR LF, in which a
/// comment "#Songrush:<mark>" before a path gives its played mark. "#Songrush:<mark>
/// bytes=<length>" says that the path is the given number of bytes after the comment's line,
/// whatever they are.
class PlaylistReader {
public:
    /// `bytes`, the file's contents, must outlive the reader and its entries.
    explicit PlaylistReader(std::string_view bytes) : mRest(bytes) {}

    /// The next entry; nothing at the end.
    std::optional<PlaylistEntry> Next();

    /// Whether `bytes` hold anything but paths and the program's own comments, in lines that end
    /// with CR LF.
    static bool FindsForeign(std::string_view bytes);

private:
    void Watch(std::string_view line, bool marked);
    std::string_view TakeLine();
    std::optional<std::string_view> TakeMeasuredPath(std::string_view markText);

    std::string_view mRest;
    bool mWatches = false;
    bool mSawForeign = false;
};

/// Whether a line of a playlist is a URL rather than a path.
bool IsAddress(std::string_view line);

/// Whether the bytes of a file are text that may be a playlist.
bool IsPlaylistText(std::string_view bytes);

/// Appends the header of a playlist file.
void AppendHeader(std::string& file);

/// Appends the lines of one entry, which `PlaylistReader` reads back as the same entry.
void AppendEntry(std::string& file, const PlaylistEntry& entry);

} // namespace library
