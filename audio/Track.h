#pragma once

#include "platform/Aside.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace audio {

struct Reel;

/// A song that is opened, measured and decoded ahead on a thread of its own, which may be left
/// behind in a read that does not return. The functions belong to one thread and return at once.
class Track {
public:
    /// The place to begin at, in seconds, of a song of that length, in seconds.
    using Start = std::function<double(double length)>;

    /// Opens the first of `songs` that can be opened and has `shortest` seconds. `start` is called
    /// on the track's thread.
    Track(std::vector<std::filesystem::path> songs, Start start, double shortest = 0);

    enum class State {
        Opening,
        Failed, ///< there is none
        Open,   ///< not yet decoded
        Ready,  ///< can be heard at once
    };
    /// A change wakes `platform::WaitWhile`.
    State Now() const;

    /// Waits, for as long as the disk takes, until the state is another than `Opening`.
    void AwaitOpen() const;

    /// The index of the song that is open or, until then, tried.
    std::size_t Index() const;

    // Of an open song:

    int Rate() const;      ///< frames a second
    double Length() const; ///< in seconds

    /// Has the song wait from `frame` on.
    void Seek(std::int64_t frame);

    /// What waits, which is kept filled from now on.
    std::shared_ptr<Reel> Hear();

    /// Nothing of it is taken for now.
    void Pause();

private:
    struct Work;

    std::shared_ptr<Work> mWork;
    platform::Aside mThread;
};

} // namespace audio
