#pragma once

#include <QString>
#include <filesystem>
#include <stop_token>
#include <string_view>
#include <system_error>

class c_M3U;

namespace library {

/// What reading a playlist of any kind came to.
struct ListRead {
    std::error_code error; ///< see `c_M3U::ReadFailure`
    /// Whether another program has written the file; then it must never be written.
    bool foreign = false;
};

/// Reads a playlist of any kind that is understood into `list`: one of the program's own as
/// `c_M3U::ReadFile` does; of another's, M3U or PLS, the songs, by absolute paths, are added to
/// `list`, which is empty and stays without a file of its own. An entry that is no file, such as an
/// Internet address, is left out. Takes its time where files are gone; a stop ends it at once, with
/// the error `operation_canceled`. May be called by any thread.
ListRead ReadAnyList(const std::filesystem::path& file, c_M3U& list,
                     const std::stop_token& stop = {});

/// The patterns of all playlists that can be read, for the dialogs that offer them: "*.m3u ...".
QString ListPatterns();

/// Whether a file has the name of a playlist.
bool HasListName(std::string_view file);

} // namespace library
