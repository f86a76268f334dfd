#include "audio/Limiter.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace audio {

namespace {

constexpr std::size_t kAhead = 8; // blocks in which the gain comes down; 12 ms at a CD's rate
constexpr float kRecoverySeconds = 0.25F; // in which it rises by the factor e

} // namespace

void Limiter::Put(std::span<const Frame> frames) {
    while (!frames.empty()) {
        const std::size_t part = std::min(frames.size(), kBlock - mFilling.count);
        std::copy_n(frames.begin(), part, mFilling.frames.begin() + mFilling.count);
        mFilling.count += part;
        frames = frames.subspan(part);
        if (mFilling.count == kBlock)
            Weigh(mFilling);
    }
}

void Limiter::End() {
    if (mFilling.count > 0)
        Weigh(mFilling); // the rest of the block is silent
    mEnded = true;
}

/// Queues the block with gains low enough at both its ends, and has the gain before it fall evenly
/// to there.
void Limiter::Weigh(Block& block) {
    const float peak = Peak(block);
    const float highest = peak > mCeiling ? mCeiling / peak : 1.0F;
    const float recovery = 1 + static_cast<float>(kBlock) / (kRecoverySeconds * float(mRate));
    block.gain = std::min(mNextGain, highest);
    mNextGain = std::min(block.gain * recovery, highest);
    const std::size_t ahead = std::min(kAhead, mBlocks.size());
    for (std::size_t distance = 1; distance <= ahead; ++distance) {
        const float way = static_cast<float>(distance) / kAhead;
        Block& before = mBlocks[mBlocks.size() - distance];
        before.gain = std::min(before.gain, block.gain + (1 - block.gain) * way);
    }
    mBlocks.push_back(block);
    block = {};
}

/// The block's true peak, or its largest sample where that is too small to matter: the curve
/// through samples below half the ceiling stays below the ceiling. A loud block's peak may only
/// show in the next one.
float Limiter::Peak(const Block& block) {
    float largest = 0;
    for (const Frame& frame : block.frames)
        largest = std::max({largest, std::abs(frame.left), std::abs(frame.right)});
    const bool before = std::exchange(mLoud, largest > mCeiling / 2);
    if (!before && !mLoud)
        return largest;
    mMeter.Add(std::span<const Frame>(block.frames));
    return static_cast<float>(mMeter.LastTruePeak());
}

std::size_t Limiter::Take(std::span<Frame> out) {
    std::size_t done = 0;
    while (done < out.size() && !mBlocks.empty() && (mEnded || mBlocks.size() > kAhead)) {
        const Block& block = mBlocks.front();
        const float next = mBlocks.size() > 1 ? mBlocks[1].gain : mNextGain;
        const float step = (next - block.gain) / kBlock;
        for (; done < out.size() && mTaken < block.count; ++mTaken) {
            const float gain = block.gain + step * static_cast<float>(mTaken);
            out[done++] = {block.frames[mTaken].left * gain, block.frames[mTaken].right * gain};
        }
        if (mTaken == block.count) {
            mBlocks.pop_front();
            mTaken = 0;
        }
    }
    return done;
}

} // namespace audio
