#include "audio/FrameMap.h"

#include <algorithm>
#include <iterator>

namespace audio {

void FrameMap::Add(double length) {
    if (mRuns.empty() || mRuns.back().length != length)
        mRuns.push_back({mCount, mEnd, length});
    ++mCount;
    const Run& run = mRuns.back();
    mEnd = run.start + static_cast<double>(mCount - run.first) * length;
}

FrameMap::Place FrameMap::At(std::int64_t frame) const {
    const auto place = static_cast<double>(frame);
    const auto after = std::upper_bound(mRuns.begin(), mRuns.end(), place,
                                        [](double at, const Run& run) { return at < run.start; });
    const Run& run = *std::prev(after);
    const auto within = static_cast<std::int64_t>((place - run.start) / run.length);
    const double start = run.start + static_cast<double>(within) * run.length;
    return {run.first + within, static_cast<std::int64_t>(start)};
}

} // namespace audio
