#pragma once

#include "audio/SilentDevice.h"

#include <cstdint>

namespace audio {

struct Sdl;
class Voice;

/// Whether nothing is heard because no sound device could be had the last time that one was
/// needed. Asked by any thread.
bool NoDevice();

/// Where the voice is heard: the system's default sound device or, if that cannot be had, a silent
/// stand-in that keeps the song running. Made, used and destroyed by one thread, which has no other
/// business with SDL; the device calls the voice on a thread of its own.
class Output {
public:
    explicit Output(Voice& voice);
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Begins to play the voice at `rate` frames a second. What is open at that rate stays open.
    void Open(int rate);

    /// Closes the device, after what it was handed has been heard. Blocks for about two of its
    /// buffers; after that the voice is not called any more.
    void Close();

    bool IsOpen() const { return mRate != 0; }

private:
    bool OpenDevice(int rate);

    const Sdl* mSdl;
    Voice& mVoice;
    SilentDevice mSilent;
    bool mStarted = false;
    std::uint32_t mDevice = 0;
    int mRate = 0;
};

} // namespace audio
