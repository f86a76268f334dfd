#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>

namespace audio {

/// Tells what is heard right now from what was handed to the device. Any thread may call anything;
/// `Note` never waits for another thread.
///
/// Time is divided into runs, numbered by the caller: within one the position only grows, and notes
/// for an earlier run are ignored.
class PlayClock {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// One buffer handed to the device: places in seconds of the song, `speed` in song seconds a
    /// second, `delay` in seconds from `when` until its first sample is heard.
    struct Handover {
        std::uint64_t run = 0;
        double first = 0;
        double end = 0;
        double speed = 1;
        double delay = 0;
        Time when;
    };

    /// Begins a run at `position`, where the clock stands until something is handed over.
    void Begin(std::uint64_t run, double position);

    /// Takes note of a buffer, unless another thread is using the clock at this moment; then the
    /// note before it stays.
    void Note(const Handover& handover) noexcept;

    /// The place in the song heard at `now`, in seconds.
    double Position(Time now);

private:
    std::mutex mMutex;
    std::uint64_t mRun = 0;
    double mReached = 0;
    std::optional<Handover> mLast;
};

} // namespace audio
