#pragma once

#include "audio/Frame.h"

#include <array>
#include <chrono>
#include <memory>
#include <span>
#include <vector>

namespace audio {

/// The frames of a short sound, `kJingleRate` a second, silent at both ends. Whoever made it keeps
/// it for as long as it may be heard, so that no device has to free it.
using Jingle = std::shared_ptr<const std::vector<Frame>>;
constexpr int kJingleRate = 44100;

/// Short sounds that are heard over everything else, each once, several at a time. One that cannot
/// begin soon is dropped. Used by one thread at a time.
class Overlay {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Plays a sound from `now` on; it is dropped if too many are playing.
    void Add(Jingle jingle, Time now);

    /// Whether there is anything to be heard, now or as soon as frames are taken.
    bool Sounding(Time now) const;

    /// Adds the sounds to the next frames, of which there are `rate` a second. Never exceeds full
    /// scale; where nothing is added the frames stay as they are.
    void Mix(std::span<Frame> frames, int rate, Time now) noexcept;

    /// Fades out what is heard, and begins nothing until `Cut`.
    void Hush();
    bool Fading() const { return mHushed && mGain > 0; }

    /// Drops the sounds that have begun; the others stay.
    void Cut();

private:
    struct Note {
        Jingle jingle; ///< none if the place is free
        Time asked;
        double next = 0; ///< frame, with the fraction on the way to the one after
    };

    Frame Take(Note& note, double speed) noexcept;

    std::array<Note, 4> mNotes;
    float mGain = 1;
    bool mHushed = false;
};

} // namespace audio
