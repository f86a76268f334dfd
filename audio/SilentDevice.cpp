#include "audio/SilentDevice.h"

#include "audio/Voice.h"

#include <chrono>
#include <vector>

namespace audio {

void SilentDevice::Open(int rate) {
    mStop = false;
    mThread = std::thread(&SilentDevice::Run, this, rate);
}

void SilentDevice::Close() {
    if (!mThread.joinable())
        return;
    {
        const std::lock_guard lock(mMutex);
        mStop = true;
    }
    mStopped.notify_one();
    mThread.join();
}

void SilentDevice::Run(int rate) {
    constexpr std::chrono::milliseconds kPeriod(20);
    std::vector<Frame> unheard(static_cast<std::size_t>(rate * kPeriod.count() / 1000));
    auto due = std::chrono::steady_clock::now();
    std::unique_lock lock(mMutex);
    do {
        mVoice.Fill(unheard);
        due += kPeriod;
    } while (!mStopped.wait_until(lock, due, [this] { return mStop; }));
}

} // namespace audio
