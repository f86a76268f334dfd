#include "audio/PlayClock.h"

#include <algorithm>

namespace audio {

void PlayClock::Begin(std::uint64_t run, double position) {
    const std::lock_guard lock(mMutex);
    mRun = run;
    mReached = position;
    mLast.reset();
}

void PlayClock::Note(const Handover& handover) noexcept {
    const std::unique_lock lock(mMutex, std::try_to_lock);
    if (lock && handover.run == mRun)
        mLast = handover;
}

double PlayClock::Position(Time now) {
    const std::lock_guard lock(mMutex);
    if (mLast) {
        const std::chrono::duration<double> since = now - mLast->when;
        const double heard = mLast->first + (since.count() - mLast->delay) * mLast->speed;
        mReached = std::max(mReached, std::min(heard, mLast->end));
    }
    return mReached;
}

} // namespace audio
