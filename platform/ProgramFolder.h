#pragma once

#include <filesystem>

namespace platform {

/// The folder the program lives in, with `Images`, `PlayList` and the score files beside it;
/// absolute, without a trailing separator.
std::filesystem::path ProgramFolder();

/// Makes another folder the program's folder from now on; an empty path undoes it.
void SetProgramFolder(const std::filesystem::path& folder);

/// The user's documents folder, where the file dialogs start the first time.
std::filesystem::path DocumentsFolder();

/// A folder of the user's, made if need be, for files that can be made again.
std::filesystem::path CacheFolder();

/// The root of the file system.
std::filesystem::path RootFolder();

/// The file `name` in `folder`, found without regard to case when it is not there as spelt;
/// `folder/name` as spelt when there is none.
std::filesystem::path FindWithoutCase(const std::filesystem::path& folder, const std::string& name);

} // namespace platform
