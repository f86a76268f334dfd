#pragma once

#include "audio/Frame.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <span>
#include <vector>

namespace audio {

/// A queue of frames between one writing and one reading thread that never blocks either.
class FrameRing {
public:
    static constexpr std::size_t kCapacity = 262144; // a power of two; about 6 s at a CD's rate

    /// Writer: how many frames fit in.
    std::size_t Space() const noexcept {
        return kCapacity -
               (mWritten.load(std::memory_order_relaxed) - mRead.load(std::memory_order_acquire));
    }

    /// Writer: appends at most `Space()` frames.
    void Write(std::span<const Frame> frames) noexcept {
        const std::size_t at = mWritten.load(std::memory_order_relaxed);
        const std::size_t start = at % kCapacity;
        const std::size_t untilWrap = std::min(frames.size(), kCapacity - start);
        std::copy_n(frames.data(), untilWrap, mFrames.data() + start);
        std::copy_n(frames.data() + untilWrap, frames.size() - untilWrap, mFrames.data());
        mWritten.store(at + frames.size(), std::memory_order_release);
    }

    /// Reader, and the writer as an upper bound: how many frames are waiting.
    std::size_t Readable() const noexcept {
        return mWritten.load(std::memory_order_acquire) - mRead.load(std::memory_order_relaxed);
    }

    /// Reader: a waiting frame, 0 being the next; `index` is below `Readable()`.
    const Frame& operator[](std::size_t index) const noexcept {
        return mFrames[(mRead.load(std::memory_order_relaxed) + index) % kCapacity];
    }

    /// Reader: takes `count` frames out, at most `Readable()`.
    void Drop(std::size_t count) noexcept {
        mRead.store(mRead.load(std::memory_order_relaxed) + count, std::memory_order_release);
    }

private:
    std::vector<Frame> mFrames{kCapacity};
    std::atomic<std::size_t> mWritten = 0; // both only grow; their difference is what waits
    std::atomic<std::size_t> mRead = 0;
};

} // namespace audio
