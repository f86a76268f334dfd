#pragma once

#include "audio/Meter.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

/// Looking at sound in tests.
namespace sound {

using Frames = std::vector<audio::Frame>;

/// The largest difference between the frames of `part` and those at the same places in `whole`,
/// which is at least as long.
inline float Difference(std::span<const audio::Frame> part, std::span<const audio::Frame> whole) {
    float largest = 0;
    for (std::size_t i = 0; i < part.size(); ++i)
        largest = std::max({largest, std::abs(part[i].left - whole[i].left),
                            std::abs(part[i].right - whole[i].right)});
    return largest;
}

/// The next `count` frames of a stream, fewer at the end.
template <typename Stream> Frames Read(Stream& stream, std::size_t count) {
    Frames frames(count);
    std::size_t done = 0;
    for (std::size_t got = 1; got > 0 && done < count; done += got)
        got = stream.Read(std::span(frames).subspan(done));
    frames.resize(done);
    return frames;
}

/// Pitch of a tone in Hz.
inline double Pitch(std::span<const audio::Frame> frames, int rate) {
    int crossings = 0;
    for (std::size_t i = 1; i < frames.size(); ++i)
        crossings += (frames[i - 1].left < 0) != (frames[i].left < 0) ? 1 : 0;
    return crossings / 2.0 * rate / static_cast<double>(frames.size());
}

/// A meter that has heard the frames.
inline audio::Meter Measured(std::span<const audio::Frame> frames, int rate) {
    audio::Meter meter(rate, audio::Meter::Of::Both);
    meter.Add(frames);
    return meter;
}

} // namespace sound
