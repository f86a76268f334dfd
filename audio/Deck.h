#pragma once

#include "audio/Output.h"
#include "audio/Voice.h"

#include <cstdint>
#include <memory>

namespace audio {

class Track;

/// Plays one track. All functions are called on one thread and return at once: other threads decode
/// and deal with the device.
class Deck {
public:
    Deck() = default;
    ~Deck() { Load(nullptr); }
    Deck(const Deck&) = delete;
    Deck& operator=(const Deck&) = delete;

    /// Stops and loads another track, which must be open, at its start and at normal speed; null
    /// for none. Without a track only `Chime` may be called.
    void Load(std::shared_ptr<Track> track);

    /// Plays from the present position; at the song's end nothing is heard.
    void Run();

    /// Stops and keeps the position: the next `Run` goes on with the next sample.
    void Halt();

    /// Goes to `seconds`, from 0 to the song's length, and plays on there if it was playing.
    void Seek(double seconds);

    /// Says that `Run` will probably be called within the next seconds; `Load` does so, too.
    void Expect();

    /// Speed factor above 0, at once.
    void SetSpeed(double speed) { mVoice->SetSpeed(speed); }

    /// Plays a short sound over the track, if any, always at normal speed.
    void Chime(Jingle jingle);

    /// The position that is heard now, in seconds; between two calls of the functions above it
    /// never falls.
    double Position();

private:
    void Silence(double position);
    void Sound();

    std::shared_ptr<Voice> mVoice = std::make_shared<Voice>();
    Output mOutput{mVoice};
    std::shared_ptr<Track> mTrack;
    std::shared_ptr<Reel> mReel; // what was heard of it last; none before the first sound
    std::int64_t mFrom = 0;      // the frame at which a new one begins
    bool mRunning = false;
    std::uint64_t mRun = 0; // numbers each stretch of playing or silence
};

} // namespace audio
