#pragma once

#include "editor/KeyPrint.h"
#include "editor/SongStream.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

/// What the editor reads on a thread of its own. Each of these takes as long as the disk does, and
/// stops where the stream says so.
namespace editor {

using Reading = std::function<void(SongStream& stream)>;

/// The songs of a folder and its subfolders, in the order of `library::ScanSongs`.
Reading ReadFolder(const std::filesystem::path& folder);

/// These songs.
Reading ReadFiles(std::vector<std::filesystem::path> songs);

/// The songs of a playlist. What cannot be read fails; no file is changed.
Reading ReadPlaylist(const std::filesystem::path& file);

/// Of the songs of a playlist as its file has them now; nothing if it has none.
std::optional<KeyPrint> PrintOf(const std::filesystem::path& file);

/// What was dropped: songs, folders and playlists, in this order; other files are passed over.
Reading ReadDropped(std::vector<std::filesystem::path> dropped);

/// The songs in a folder, and below it, that have the file names of those with these keys, without
/// regard to case.
Reading FindByName(const std::filesystem::path& folder, const std::vector<QString>& keys);

/// For each of these keys the first of the songs found by its name, if there is one.
std::vector<std::pair<QString, Line>> MatchByName(const std::vector<QString>& keys,
                                                  const std::vector<Line>& found);

} // namespace editor
