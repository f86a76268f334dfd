#pragma once

#include "platform/Aside.h"

#include <memory>
#include <optional>

namespace audio {

class Voice;

/// Whether nothing is heard because no sound device could be had, or none that works, the last time
/// that one was needed. Any thread may ask.
bool NoDevice();

/// Has a voice heard: keeps the sound device open while it is needed and, while there is none that
/// works, takes the frames at the pace at which they would be heard. Used by one thread, which
/// never waits for the device.
class Output {
public:
    explicit Output(std::shared_ptr<Voice> voice);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// The voice will probably begin within the next seconds, at `rate` frames a second.
    void Expect(int rate);

    /// It has begun.
    void Begin(int rate);

    /// It has ended, perhaps only for an instant.
    void End();

    /// A short sound was added to it, which a device of any rate will do for.
    void Chime();

private:
    struct Need;

    void Wake();

    std::shared_ptr<Need> mNeed;
    std::optional<platform::Aside> mDevice; // both from the first need on
    std::optional<platform::Aside> mStandIn;
};

} // namespace audio
