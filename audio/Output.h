#pragma once

#include "platform/Aside.h"

#include <memory>
#include <optional>

namespace audio {

class Voice;

/// Whether nothing is heard because there was no working sound device the last time one was needed.
/// Any thread may call this.
bool NoDevice();

/// Plays a voice: keeps the sound device open while it is needed and, while none works, takes the
/// frames at the pace at which they would be played. Used by one thread, which never waits for the
/// device.
class Output {
public:
    explicit Output(std::shared_ptr<Voice> voice);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Says that the voice will probably begin within the next seconds, at `rate` frames a second.
    void Expect(int rate);

    /// Says that it has begun.
    void Begin(int rate);

    /// Says that it has ended, perhaps only for an instant.
    void End();

    /// Says that a short sound was added to it, which a device of any rate can play.
    void Chime();

private:
    struct Need;

    void Wake();

    std::shared_ptr<Need> mNeed;
    std::optional<platform::Aside> mDevice; // both from the first need on
    std::optional<platform::Aside> mStandIn;
};

} // namespace audio
