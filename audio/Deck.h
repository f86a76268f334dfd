#pragma once

#include "audio/Output.h"
#include "audio/Voice.h"

#include <cstdint>
#include <memory>

namespace audio {

class Track;

/// Plays one track. The functions belong to one thread and return at once: decoding and the
/// device's affairs happen on other threads.
class Deck {
public:
    Deck() = default;
    ~Deck() { Load(nullptr); }
    Deck(const Deck&) = delete;
    Deck& operator=(const Deck&) = delete;

    /// Stops and puts in another track, which is open, at its start and at normal speed; null for
    /// none. Without a track none of the others but `Chime` must be called.
    void Load(std::shared_ptr<Track> track);

    /// Plays on from the position; at the song's end nothing is heard.
    void Run();

    /// Stops and keeps the position: the next `Run` goes on with the next sample.
    void Halt();

    /// Goes to `seconds`, from 0 to the song's length, and plays on there if it was playing.
    void Seek(double seconds);

    /// `Run` will probably be called within the next seconds, as is expected after `Load`.
    void Expect();

    /// Speed factor above 0, at once.
    void SetSpeed(double speed) { mVoice->SetSpeed(speed); }

    /// Has a short sound heard beside the track, or without any, and at no other speed.
    void Chime(Jingle jingle);

    /// What is heard now, in seconds; between two calls of the functions above it never falls.
    double Position();

private:
    void Silence(double position);
    void Sound();

    std::shared_ptr<Voice> mVoice = std::make_shared<Voice>();
    Output mOutput{mVoice};
    std::shared_ptr<Track> mTrack;
    std::shared_ptr<Reel> mReel; // what was heard of it last; none before the first sound
    std::int64_t mFrom = 0;      // where it begins if there is none
    bool mRunning = false;
    std::uint64_t mRun = 0; // number of what is played, or silent, since the last change
};

} // namespace audio
