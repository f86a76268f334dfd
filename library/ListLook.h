#pragma once

#include <filesystem>
#include <functional>
#include <stop_token>

namespace library {

// Both look at a playlist of any kind and change no file. They take as long as the disk does,
// unless they are stopped.

struct UnplayedSongs {
    int songs = 0; ///< 0 if the list cannot be read
    int unplayed = 0;
};

/// How many songs of a list have not been played yet. Those played in games that were killed count
/// as played.
UnplayedSongs CountUnplayed(const std::filesystem::path& list, const std::stop_token& stop);

struct SongCheck {
    int songs = 0;
    int checked = 0; ///< fewer than `songs` if time ran out
    int unplayable = 0;
};

/// Counts the songs of a list that are missing, cannot be read or are shorter than `shortest`
/// seconds. `lengthOf` returns seconds, 0 for what is not a song, and is called only for files
/// small enough to be too short. Gives up after some 2 seconds, because a game also finds out by
/// itself what it cannot play.
SongCheck CheckSongs(const std::filesystem::path& list, double shortest,
                     const std::function<double(const std::filesystem::path&)>& lengthOf,
                     const std::stop_token& stop);

} // namespace library
