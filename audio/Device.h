#pragma once

#include <cstdint>
#include <memory>

namespace audio {

struct Sdl;
class Voice;

/// A number for `Voice::Connect`, another one each time. Any thread may ask.
std::uint64_t NewDeviceNumber();

/// The system's default sound device, through which a voice is heard. Made, used and destroyed by
/// one thread, which has no other business with SDL. Each call may take as long as the device
/// pleases; the device calls the voice on a thread of its own.
class Device {
public:
    explicit Device(std::shared_ptr<Voice> voice);
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// Opens the device, which takes `rate` frames a second from now on; false if none can be had.
    bool Open(int rate);

    /// Whether it still plays the voice: it was not unplugged, nor replaced by another listener.
    bool Serves() const;

    /// Closes the device, if it is open, after what it was handed has been heard.
    void Close();

private:
    struct Listener;

    bool StartSdl();

    const Sdl* mSdl = nullptr;
    std::shared_ptr<Voice> mVoice;
    std::unique_ptr<Listener> mListener;
    bool mStarted = false;
    std::uint32_t mDevice = 0;
};

} // namespace audio
