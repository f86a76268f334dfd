#pragma once

#include "audio/Frame.h"
#include "audio/FrameRing.h"

#include <atomic>
#include <cstdint>
#include <span>

namespace audio {

class PlayClock;

/// The sound between decoder and device: queues decoded frames, hands them out at the wanted speed
/// and fades over 4 ms where sound begins and ends. Two threads meet here: the feeder, and the
/// device, which only calls `Fill`.
class Voice {
public:
    /// `clock` is told of everything handed out.
    explicit Voice(PlayClock& clock) : mClock(clock) {}

    /// Feeder, while silent: empties the queue; what is pushed next is frame `at` of a song with
    /// `rate` frames a second.
    void Load(int rate, std::int64_t at);

    /// Feeder: how many frames can be pushed.
    std::size_t Space() const { return mRing.Space(); }

    /// Feeder: how many frames are waiting, at most.
    std::size_t Waiting() const { return mRing.Readable(); }

    /// Feeder: appends decoded frames, at most `Space()`.
    void Push(std::span<const Frame> frames) { mRing.Write(frames); }

    /// Feeder: nothing more will be pushed until the next `Load`.
    void Finish() { mComplete.store(true, std::memory_order_release); }

    /// Feeder: whether `Finish` was called.
    bool Complete() const { return mComplete.load(std::memory_order_acquire); }

    /// Feeder: whether everything up to the song's end was handed out.
    bool Drained() const { return Complete() && Waiting() == 0; }

    /// Feeder, while silent: lets sound begin, noted under `run` of the clock.
    void Start(std::uint64_t run);

    /// Feeder: lets sound end; the device goes on until `Silent`.
    void FadeOut();

    /// Feeder, with no device left to call `Fill`: ends the sound at once.
    void Cut() { mState.store(State::Silent, std::memory_order_release); }

    /// Feeder: whether the device has stopped taking frames out.
    bool Silent() const { return mState.load(std::memory_order_acquire) == State::Silent; }

    /// Any thread: speed factor, at once; 1 is normal.
    void SetSpeed(double speed) { mSpeed.store(speed, std::memory_order_relaxed); }

    /// Device: the next `out.size()` frames at the song's rate, silence where there are none.
    void Fill(std::span<Frame> out) noexcept;

private:
    // The feeder moves Silent to Sounding and Sounding to FadingOut, the device FadingOut to
    // Silent. While Silent everything below belongs to the feeder, else to the device.
    enum class State { Silent, Sounding, FadingOut };

    std::size_t Render(std::span<Frame> out, bool sounding, double speed) noexcept;
    Frame Interpolated(std::size_t index, std::size_t waiting) const noexcept;
    double Place() const noexcept { return (static_cast<double>(mNext) + mPhase) / mRate; }

    PlayClock& mClock;
    FrameRing mRing;
    std::atomic<bool> mComplete = false;
    std::atomic<double> mSpeed = 1;
    std::atomic<State> mState = State::Silent;

    int mRate = 44100;
    std::uint64_t mRun = 0;
    std::int64_t mNext = 0; // frame of the song that leaves the queue next
    double mPhase = 0;      // how far between it and its successor, below 1
    double mGain = 0;
};

} // namespace audio
