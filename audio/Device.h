#pragma once

#include <cstdint>
#include <memory>

namespace audio {

struct Sdl;
class Voice;

/// A number for `Voice::Connect`, a different one each time. Any thread may call this.
std::uint64_t NewDeviceNumber();

/// The system's default sound device, which plays a voice. Created, used and destroyed on one
/// thread, which does nothing else with SDL. Each call may take as long as the device does; the
/// device calls the voice on a thread of its own.
class Device {
public:
    explicit Device(std::shared_ptr<Voice> voice);
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// Opens the device, which then takes `rate` frames a second; false if there is none.
    bool Open(int rate);

    /// Whether it still plays the voice: it has neither been unplugged nor replaced by another
    /// listener.
    bool Serves() const;

    /// Closes the device, if it is open, once it has played what it was given.
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
