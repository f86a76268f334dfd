#pragma once

#include "editor/KeyPrint.h"
#include "editor/SongStream.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

/// What the editor reads on a thread of its own. Each of these takes as long as the disk does, and
/// stops when the stream says so.
namespace editor {

using Reading = std::function<void(SongStream& stream)>;

/// Reads the songs of a folder and its subfolders, in the order of `library::ScanSongs`.
Reading ReadFolder(const std::filesystem::path& folder);

/// Reads these songs.
Reading ReadFiles(std::vector<std::filesystem::path> songs);

/// Reads the songs of a playlist. If it cannot be read, the stream fails; no file is changed.
Reading ReadPlaylist(const std::filesystem::path& file);

/// The print of the songs in a playlist file; nothing if it has none.
std::optional<KeyPrint> PrintOf(const std::filesystem::path& file);

/// Reads what was dropped: songs, folders and playlists, in the order given; other files are
/// skipped.
Reading ReadDropped(std::vector<std::filesystem::path> dropped);

/// Reads the songs in a folder, and below it, that have the file names of the songs with these
/// keys, ignoring case.
Reading FindByName(const std::filesystem::path& folder, const std::vector<QString>& keys);

/// For each of these keys the first song found that has its file name, if there is one.
std::vector<std::pair<QString, Line>> MatchByName(const std::vector<QString>& keys,
                                                  const std::vector<Line>& found);

} // namespace editor
