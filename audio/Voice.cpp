#include "audio/Voice.h"

#include "audio/Reel.h"

#include <algorithm>
#include <utility>

namespace audio {

namespace {
constexpr double kFadeSeconds = 0.004;
}

void Voice::Play(std::shared_ptr<Reel> reel, std::uint64_t run) {
    std::shared_ptr<Reel> old; // destroyed after the lock is released
    const std::lock_guard lock(mMutex);
    old = std::exchange(mOld, nullptr);
    mWanted = std::move(reel);
    mWantedRun = run;
    if (mReel == mWanted || !mReel || mGain == 0)
        ChangeOver();
}

void Voice::SetSpeed(double speed) {
    const std::lock_guard lock(mMutex);
    mSpeed = speed;
}

void Voice::Add(Jingle jingle) {
    const std::lock_guard lock(mMutex);
    mOverlay.Add(std::move(jingle), std::chrono::steady_clock::now());
}

bool Voice::Sounding() const {
    const std::lock_guard lock(mMutex);
    return mReel != mWanted || (mReel && mEndedRun != mRun);
}

bool Voice::Chiming() const {
    const std::lock_guard lock(mMutex);
    return mOverlay.Sounding(std::chrono::steady_clock::now());
}

void Voice::Hush() {
    const std::lock_guard lock(mMutex);
    mOverlay.Hush();
}

bool Voice::Fading() const {
    const std::lock_guard lock(mMutex);
    return mReel != mWanted || mOverlay.Fading();
}

bool Voice::Ended(std::uint64_t run) const {
    const std::lock_guard lock(mMutex);
    return mEndedRun == run;
}

void Voice::Connect(std::uint64_t device, int rate) {
    const std::lock_guard lock(mMutex);
    mListener = {device, std::chrono::steady_clock::now()};
    mRate = rate;
    mGain = 0;
    mOverlay.Cut();
    mVolume.Begin();
    ChangeOver();
}

void Voice::Disconnect(std::uint64_t device) {
    const std::lock_guard lock(mMutex);
    if (mListener.device != device)
        return;
    mListener = {};
    mGain = 0;
    mOverlay.Cut();
    ChangeOver();
}

Voice::Listener Voice::Served() const {
    const std::lock_guard lock(mMutex);
    return mListener;
}

void Voice::Fill(std::uint64_t device, std::span<Frame> out) noexcept {
    std::fill(out.begin(), out.end(), Frame{});
    const std::lock_guard lock(mMutex);
    if (mListener.device != device)
        return;
    mListener.asked = std::chrono::steady_clock::now();
    if (mReel != mWanted && (Render(out, false) < out.size() || mGain == 0))
        ChangeOver();
    else if (mReel == mWanted && mReel && mReel->rate == mRate)
        Serve(out);
    mOverlay.Mix(out, mRate, mListener.asked);
    mVolume.Apply(out, mRate);
}

void Voice::Serve(std::span<Frame> out) {
    const double first = Place();
    if (Render(out, true) == 0 && mReel->complete && mReel->frames.Readable() == 0)
        mEndedRun = mRun;
    mClock.Note({.run = mRun,
                 .first = first,
                 .end = Place(),
                 .speed = mSpeed,
                 .delay = static_cast<double>(out.size()) / mRate,
                 .when = mListener.asked});
}

/// Writes frames until `out` is full, the fade is over or the queue has run dry; returns how many.
std::size_t Voice::Render(std::span<Frame> out, bool sounding) {
    const bool complete = mReel->complete; // asked first: if so, what waits is all there is
    const std::size_t waiting = mReel->frames.Readable();
    const std::size_t needed = complete ? 1 : 2;
    const double fadeStep = 1 / (kFadeSeconds * mRate);
    std::size_t taken = 0;
    std::size_t done = 0;
    while (done < out.size() && taken + needed <= waiting && (sounding || mGain > 0)) {
        const Frame frame = Interpolated(taken, waiting);
        const auto gain = static_cast<float>(mGain);
        out[done++] = {frame.left * gain, frame.right * gain};
        // A file cut short ends in the middle of its sound, and a slow disk makes the decoder late,
        // so sound is also faded out when the queue runs dry.
        const double left = static_cast<double>(waiting - taken) / mSpeed;
        const bool ends = left * fadeStep <= mGain;
        mGain = std::clamp(mGain + (sounding && !ends ? fadeStep : -fadeStep), 0.0, 1.0);
        mReel->phase += mSpeed;
        const auto whole = static_cast<std::size_t>(mReel->phase);
        mReel->phase -= static_cast<double>(whole);
        taken += whole;
    }
    taken = std::min(taken, waiting);
    mReel->frames.Drop(taken);
    mReel->next += static_cast<std::int64_t>(taken);
    return done;
}

Frame Voice::Interpolated(std::size_t index, std::size_t waiting) const {
    const Frame& from = mReel->frames[index];
    const Frame& to = index + 1 < waiting ? mReel->frames[index + 1] : from;
    const auto share = static_cast<float>(mReel->phase);
    return {from.left + (to.left - from.left) * share,
            from.right + (to.right - from.right) * share};
}

double Voice::Place() const {
    return (static_cast<double>(mReel->next) + mReel->phase) / mReel->rate;
}

/// Changes to the wanted reel, once nothing sounds.
void Voice::ChangeOver() {
    if (mReel != mWanted) {
        mOld = std::exchange(mReel, mWanted);
        mGain = 0;
    }
    mRun = mWantedRun;
}

} // namespace audio
