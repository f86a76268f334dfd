#pragma once

#include <filesystem>
#include <system_error>

namespace app {

/// Brings the songs and playlists that came with the program from the folder `shipped` into the
/// user's folder `own`, which is made if need be, with an empty `Images` for pictures of the
/// user's. Each file is copied once: one that the user has changed, renamed or deleted stays as the
/// user left it, and no other file is ever replaced. Files that are new in a newer program are
/// copied, and changed ones replace untouched copies. If it is interrupted the next call completes
/// it.
std::error_code BringShippedFiles(const std::filesystem::path& shipped,
                                  const std::filesystem::path& own);

/// Gets `platform::ProgramFolder` ready if it is not where the program lies. If it was never filled
/// and cannot be, a message says so, and the files that came with the program are used where they
/// lie, read-only.
void PrepareProgramFolder();

} // namespace app
