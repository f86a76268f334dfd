#pragma once

#include <filesystem>

namespace library {

/// The folder in which MP3 files were chosen last; the root of the file system when it is gone. The
/// first time it is the user's music folder or, if that holds no song, that of the sample songs.
/// Waits for no disk: what `LookForMp3Folder` has not found out counts as being there.
std::filesystem::path LastMp3Folder();

/// Begins to find out what `LastMp3Folder` is to give; for a screen on which it may be asked for.
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
