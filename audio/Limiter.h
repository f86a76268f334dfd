#pragma once

#include "audio/Frame.h"
#include "audio/Meter.h"

#include <array>
#include <cstddef>
#include <deque>
#include <span>

namespace audio {

/// Turns sound down, gently and ahead of time, wherever its true peak would exceed a ceiling; the
/// rest passes unchanged. Every frame put in comes out again, some frames later. Used by one
/// thread.
class Limiter {
public:
    /// For sound of `rate` frames a second; full scale is a `ceiling` of 1.
    Limiter(int rate, float ceiling) : mRate(rate), mCeiling(ceiling) {}

    /// Appends frames.
    void Put(std::span<const Frame> frames);

    /// Says that nothing more will be put in, so that all of it can be taken out.
    void End();

    /// Moves what is ready into `out`, as much as fits, and returns how many frames that were.
    std::size_t Take(std::span<Frame> out);

    /// Whether all has been taken out after `End`.
    bool Drained() const { return mEnded && mBlocks.empty(); }

private:
    static constexpr std::size_t kBlock = 64;

    struct Block {
        std::array<Frame, kBlock> frames;
        std::size_t count = 0;
        float gain = 1; // at its first frame; from there it slides to that of the next block
    };

    void Weigh(Block& block);
    float Peak(const Block& block);

    int mRate;
    float mCeiling;
    Meter mMeter{mRate, Meter::Of::TruePeak};
    std::deque<Block> mBlocks;
    Block mFilling;
    float mNextGain = 1; // at the first frame of the next block
    bool mLoud = false;  // whether the block before was measured closely
    std::size_t mTaken = 0;
    bool mEnded = false;
};

} // namespace audio
