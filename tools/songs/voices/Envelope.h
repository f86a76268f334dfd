#pragma once

#include "tools/songs/Sound.h"

namespace songs {

/// The loudness of a tone that rises, stays, and falls when it is let go; all softly bent.
class Envelope {
public:
    /// All in seconds; the fall begins after `held`, but not before the rise is over.
    Envelope(double rise, double held, double fall)
        : mFallStart(SampleCount(held > rise ? held : rise)),
          mRise(static_cast<float>(1 / (rise * kSampleRate))),
          mFall(static_cast<float>(1 / (fall * kSampleRate))),
          mLength(mFallStart + SampleCount(fall)) {}

    /// Samples from the start to silence.
    std::size_t Length() const { return mLength; }

    /// The loudness at the next sample, from 0 to 1.
    float Next() {
        mLevel += mTime++ < mFallStart ? mRise : -mFall;
        mLevel = mLevel > 1 ? 1 : mLevel < 0 ? 0 : mLevel;
        return mLevel * mLevel * (3 - 2 * mLevel);
    }

private:
    std::size_t mFallStart;
    float mRise;
    float mFall;
    std::size_t mLength;
    std::size_t mTime = 0;
    float mLevel = 0;
};

} // namespace songs
