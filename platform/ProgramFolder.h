#pragma once

#include <filesystem>

namespace platform {

/// Where a program finds and keeps its files; absolute, without trailing separators.
struct ProgramFolders {
    std::filesystem::path own;     ///< written to
    std::filesystem::path shipped; ///< what came with the program; read-only when it is not `own`
};

/// The folders of a program whose executable lies in `executable`. Both are that folder; but for a
/// program that was installed for all users, with what came with it under the system's shared data
/// instead of beside it, the own one is `Songrush` in the user's data folder `userData`.
ProgramFolders FoldersOf(const std::filesystem::path& executable,
                         const std::filesystem::path& userData);

/// The folder with `PlayList`, `Music`, the score files and the player's own `Images`; absolute,
/// without a trailing separator. The program's start makes it when it is not where the program
/// lies.
std::filesystem::path ProgramFolder();

/// Where a file is that lay at `path` when the program started: somewhere else if it lay in the
/// program's folder and that was renamed since.
std::filesystem::path WhereNow(const std::filesystem::path& path);

/// Makes another folder the program's folder from now on; an empty path undoes it.
void SetProgramFolder(const std::filesystem::path& folder);

/// The folder with all that came with the program; of a program that can be moved anywhere the
/// same as `ProgramFolder`.
std::filesystem::path ShippedFolder();

/// The user's documents folder.
std::filesystem::path DocumentsFolder();

/// The user's music folder, where songs are looked for the first time.
std::filesystem::path MusicFolder();

/// The user's home folder.
std::filesystem::path HomeFolder();

/// A folder of the user's, made if need be, for files that can be made again.
std::filesystem::path CacheFolder();

/// The root of the file system.
std::filesystem::path RootFolder();

/// The file `name` in `folder`, found without regard to case when it is not there as spelt;
/// `folder/name` as spelt when there is none.
std::filesystem::path FindWithoutCase(const std::filesystem::path& folder, const std::string& name);

} // namespace platform
