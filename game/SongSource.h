#pragma once

#include <filesystem>
#include <functional>
#include <memory>

namespace game {

/// How many songs a game needs at least.
constexpr int kFewestSongs = 10;

/// Seconds that a song must have to be played.
constexpr double kShortestSong = 5;

/// Where a game's songs come from. Created for one game; released once its first song is loaded.
class SongSource {
public:
    virtual ~SongSource() = default;

    /// Asks the player, waits for the choice and returns the path of a playlist, or an empty one.
    virtual std::filesystem::path GetM3U() = 0;

    /// Read after `GetM3U`: whether the player wants to leave the program.
    virtual bool ExitProgram() const = 0;

    /// Whether the waiting window, which `GetM3U` leaves open while the songs are loaded, is still
    /// open; the player closes it to give up.
    virtual bool Loading() const = 0;

    /// Hides the waiting window.
    virtual void LoadingDone() = 0;
};

using SongSourceFactory = std::function<std::unique_ptr<SongSource>()>;

} // namespace game
