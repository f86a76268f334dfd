#pragma once

#include <filesystem>
#include <system_error>

namespace app {

/// Brings the songs and playlists that came with the program from the folder `shipped` into the
/// user's folder `own`, which is made if need be, with an empty `Images` for pictures of the
/// user's. Each file is given once: one that the user changed, renamed or deleted since stays as
/// the user left it, and never is another file replaced. A file that came anew or changed with a
/// newer program is given, the changed one only in place of an untouched copy. What was interrupted
/// is completed by the next call.
std::error_code BringShippedFiles(const std::filesystem::path& shipped,
                                  const std::filesystem::path& own);

/// Makes `platform::ProgramFolder` ready to be used when it is not where the program lies. If it
/// could never be filled this says so, and what came with the program is used where it lies,
/// read-only.
void PrepareProgramFolder();

} // namespace app
