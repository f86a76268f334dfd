#pragma once

#include "audio/FrameRing.h"

#include <atomic>
#include <cstdint>

namespace audio {

/// A song's decoded frames, from one place on, that wait to be heard. One thread winds frames on,
/// another takes them off.
struct Reel {
    /// `start` is the first frame, 0-based, of a song with `frameRate` frames a second.
    Reel(int frameRate, std::int64_t start) : rate(frameRate), from(start), next(start) {}

    const int rate;
    const std::int64_t from;
    FrameRing frames;
    std::atomic<bool> complete = false; ///< no more frames will come

    std::int64_t next; ///< the frame that is taken off next
    double phase = 0;  ///< how far between it and its successor, below 1
};

} // namespace audio
