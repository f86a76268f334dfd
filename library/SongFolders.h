#pragma once

#include <filesystem>

namespace library {

/// The folder in which MP3 files were chosen last; the root of the file system when it is gone. The
/// first time it is the user's music folder or, if there seems to be no song, that of the sample
/// songs.
std::filesystem::path LastMp3Folder();

/// Remembers `folder` for `LastMp3Folder`.
void SetLastMp3Folder(const std::filesystem::path& folder);

/// The folder beside the program in which playlists are kept. It may not exist.
std::filesystem::path PlaylistFolder();

} // namespace library
