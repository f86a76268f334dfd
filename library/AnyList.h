#pragma once

#include <QString>
#include <filesystem>
#include <stop_token>
#include <string_view>
#include <system_error>

class c_M3U;

namespace library {

/// The result of reading a playlist of any kind.
struct ListRead {
    std::error_code error; ///< see `c_M3U::ReadFailure`
    /// Whether another program wrote the file, which then must never be overwritten.
    bool foreign = false;
};

/// Reads a playlist of any supported kind into `list`, which must be empty. One of the program's
/// own is read as by `c_M3U::ReadFile`. Of another program's, M3U or PLS, the songs are added by
/// their absolute paths, and `list` has no file to write back to; an entry that is not a file, such
/// as an Internet address, is left out. May be slow if files are missing; a stop ends it at once,
/// with the error `operation_canceled`. May be called on any thread.
ListRead ReadAnyList(const std::filesystem::path& file, c_M3U& list,
                     const std::stop_token& stop = {});

/// The file name patterns of all playlists that can be read, for file dialogs: "*.m3u ...".
QString ListPatterns();

/// Whether a file is named like a playlist.
bool HasListName(std::string_view file);

} // namespace library
