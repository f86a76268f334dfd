#include "audio/Voice.h"

#include "audio/PlayClock.h"

#include <algorithm>
#include <chrono>

namespace audio {

namespace {
constexpr double kFadeSeconds = 0.004;
}

void Voice::Load(int rate, std::int64_t at) {
    mRing.Drop(mRing.Readable());
    mComplete.store(false, std::memory_order_relaxed);
    mRate = rate;
    mNext = at;
    mPhase = 0;
}

void Voice::Start(std::uint64_t run) {
    mRun = run;
    mGain = 0;
    mState.store(State::Sounding, std::memory_order_release);
}

void Voice::FadeOut() {
    State expected = State::Sounding;
    mState.compare_exchange_strong(expected, State::FadingOut);
}

void Voice::Fill(std::span<Frame> out) noexcept {
    const State state = mState.load(std::memory_order_acquire);
    std::size_t done = 0;
    if (state != State::Silent) {
        const double speed = mSpeed.load(std::memory_order_relaxed);
        const double first = Place();
        done = Render(out, state == State::Sounding, speed);
        mClock.Note({.run = mRun,
                     .first = first,
                     .end = Place(),
                     .speed = speed,
                     .delay = static_cast<double>(out.size()) / mRate,
                     .when = std::chrono::steady_clock::now()});
        if (state == State::FadingOut && done < out.size())
            mState.store(State::Silent, std::memory_order_release);
    }
    std::fill(out.begin() + static_cast<std::ptrdiff_t>(done), out.end(), Frame{});
}

/// Writes frames until `out` is full, the fade is over or the queue has run dry; returns how many.
std::size_t Voice::Render(std::span<Frame> out, bool sounding, double speed) noexcept {
    const bool complete = Complete(); // asked first: then what waits is all there is
    const std::size_t waiting = mRing.Readable();
    const std::size_t needed = complete ? 1 : 2;
    const double fadeStep = 1 / (kFadeSeconds * mRate);
    std::size_t taken = 0;
    std::size_t done = 0;
    while (done < out.size() && taken + needed <= waiting && (sounding || mGain > 0)) {
        const Frame frame = Interpolated(taken, waiting);
        const auto gain = static_cast<float>(mGain);
        out[done++] = {frame.left * gain, frame.right * gain};
        // A file cut short ends in the middle of its sound, and a slow disk makes the feeder late:
        // whatever the queue runs dry of is faded too.
        const double left = static_cast<double>(waiting - taken) / speed;
        const bool ends = left * fadeStep <= mGain;
        mGain = std::clamp(mGain + (sounding && !ends ? fadeStep : -fadeStep), 0.0, 1.0);
        mPhase += speed;
        const auto whole = static_cast<std::size_t>(mPhase);
        mPhase -= static_cast<double>(whole);
        taken += whole;
    }
    taken = std::min(taken, waiting);
    mRing.Drop(taken);
    mNext += static_cast<std::int64_t>(taken);
    return done;
}

Frame Voice::Interpolated(std::size_t index, std::size_t waiting) const noexcept {
    const Frame& from = mRing[index];
    const Frame& to = index + 1 < waiting ? mRing[index + 1] : from;
    const auto share = static_cast<float>(mPhase);
    return {from.left + (to.left - from.left) * share,
            from.right + (to.right - from.right) * share};
}

} // namespace audio
