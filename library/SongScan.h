#pragma once

#include <filesystem>
#include <functional>

class c_ID3;

namespace library {

/// What a scan tells as it goes; a false answer stops it. The scan lets no events run itself.
struct ScanCalls {
    /// A folder that can be read is about to be listed.
    std::function<bool(const std::filesystem::path& folder)> folderEntered;
    /// A song was met, by its full path, and its tag read.
    std::function<bool(const std::filesystem::path& song, const c_ID3& tag)> songFound;
};

/// Goes through the MP3 files of `folder` and its subfolders in the order the file system gives
/// them, a folder's own files before its subfolders, depth first. A folder that is reached on
/// several ways, by links, is read once; one that cannot be read adds nothing.
void ScanSongs(const std::filesystem::path& folder, const ScanCalls& calls);

/// Whether there are MP3 files in `folder` or below, as far as that is soon found out: a slow disk
/// gets the benefit of the doubt, a great many folders without a song do not.
bool SeemsToHoldSongs(const std::filesystem::path& folder);

} // namespace library
