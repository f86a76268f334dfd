#pragma once

#include <filesystem>

namespace platform {

/// The folder with `PlayList`, `Music`, the score files and the player's own `Images`; absolute,
/// without a trailing separator. The program creates it at its start if it is not where the
/// executable lies.
std::filesystem::path ProgramFolder();

/// Where the file is that lay at `path` when the program started: elsewhere if it is in the
/// program's folder and that has been renamed.
std::filesystem::path WhereNow(const std::filesystem::path& path);

/// Makes another folder the program's folder; an empty path undoes that.
void SetProgramFolder(const std::filesystem::path& folder);

/// The folder with everything that came with the program; the same as `ProgramFolder` unless the
/// program was installed for all users, with its files under the system's shared data. Then it is
/// read-only, and `ProgramFolder` is `Songrush` in the user's data folder.
std::filesystem::path ShippedFolder();

/// The user's documents folder.
std::filesystem::path DocumentsFolder();

/// The user's music folder, where the first search for songs starts.
std::filesystem::path MusicFolder();

/// The user's home folder.
std::filesystem::path HomeFolder();

/// The user's folder for files that can be made again; created if need be.
std::filesystem::path CacheFolder();

/// The root of the file system.
std::filesystem::path RootFolder();

/// The file `name` in `folder`, found without regard to case when it is not there as spelt;
/// `folder/name` as spelt when there is none.
std::filesystem::path FindWithoutCase(const std::filesystem::path& folder, const std::string& name);

} // namespace platform
