#pragma once

#include <filesystem>

namespace library {

/// The folder in which MP3 files were chosen last; the root of the file system if it is gone. The
/// first time it is the user's music folder or, if that holds no song, that of the sample songs.
/// Never waits for a disk: until `LookForMp3Folder` knows better, the folder counts as being there.
std::filesystem::path LastMp3Folder();

/// Starts finding out what `LastMp3Folder` should return; called by a screen that may need it.
void LookForMp3Folder();

/// Remembers `folder` for `LastMp3Folder`.
void SetLastMp3Folder(const std::filesystem::path& folder);

/// The playlist that was played last; empty if there is none.
std::filesystem::path LastList();

/// Remembers `list` for `LastList`.
void SetLastList(const std::filesystem::path& list);

/// The folder beside the program in which playlists are kept. It may not exist.
std::filesystem::path PlaylistFolder();

} // namespace library
