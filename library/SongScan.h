#pragma once

#include "library/SongTag.h"

#include <filesystem>
#include <functional>
#include <stop_token>

namespace library {

/// What a scan calls as it goes, on the thread of `ScanSongs`; false stops it.
struct ScanCalls {
    /// A folder that can be read comes next.
    std::function<bool(const std::filesystem::path& folder)> folderEntered;
    /// A song was found, with its full path and its tag.
    std::function<bool(const std::filesystem::path& song, const SongTag& tag)> songFound;
};

/// Goes through the MP3 files of `folder` and its subfolders in the order the file system gives
/// them, a folder's own files before its subfolders, depth first. A folder that links lead to in
/// several ways is read once; one that cannot be read adds nothing. Threads of its own read ahead
/// of the calls. Returns only when the disk has answered them; see `SongSearch`.
void ScanSongs(const std::filesystem::path& folder, const ScanCalls& calls);

/// Whether there are MP3 files in `folder` or below; gives up after a great many folders without a
/// song. Returns when the disk has answered, or soon after a stop.
bool HoldsSongs(const std::filesystem::path& folder, const std::stop_token& stop = {});

} // namespace library
