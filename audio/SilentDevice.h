#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

namespace audio {

class Voice;

/// Stands in for a sound device where there is none: takes the frames at the pace at which they
/// would be heard and throws them away. Used by one thread.
class SilentDevice {
public:
    explicit SilentDevice(Voice& voice) : mVoice(voice) {}
    ~SilentDevice() { Close(); }
    SilentDevice(const SilentDevice&) = delete;
    SilentDevice& operator=(const SilentDevice&) = delete;

    /// Begins to take `rate` frames a second, on a thread of its own.
    void Open(int rate);

    /// Stops at once; nothing happens when it is not open.
    void Close();

private:
    void Run(int rate);

    Voice& mVoice;
    std::thread mThread;
    std::mutex mMutex;
    std::condition_variable mStopped;
    bool mStop = false;
};

} // namespace audio
