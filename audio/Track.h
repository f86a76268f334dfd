#pragma once

#include "platform/Aside.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace audio {

struct Reel;

/// A song that is opened, measured and decoded ahead on a thread of its own, which is left behind
/// if a read does not return. The functions are called on one thread; all but `AwaitOpen` return at
/// once.
class Track {
public:
    /// Returns the place to begin at in a song of that length; both in seconds.
    using Start = std::function<double(double length)>;

    /// Opens the first of `songs` that can be opened and lasts at least `shortest` seconds. `start`
    /// is called on the track's thread.
    Track(std::vector<std::filesystem::path> songs, Start start, double shortest = 0);

    enum class State {
        Opening,
        Failed, ///< no song can be opened
        Open,   ///< not yet decoded
        Ready,  ///< can be heard at once
    };
    /// A change wakes `platform::WaitWhile`.
    State Now() const;

    /// Waits, for as long as the disk takes, until the state is not `Opening`.
    void AwaitOpen() const;

    /// The index of the song that is open or, until then, being tried.
    std::size_t Index() const;

    // Of an open song:

    int Rate() const;      ///< frames a second
    double Length() const; ///< in seconds

    /// Makes the frames from `frame` (0-based) on wait to be heard.
    void Seek(std::int64_t frame);

    /// The reel of waiting frames, which is kept filled from now on.
    std::shared_ptr<Reel> Hear();

    /// Says that no frames are taken from it for now.
    void Pause();

private:
    struct Work;

    std::shared_ptr<Work> mWork;
    platform::Aside mThread;
};

} // namespace audio
