#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

namespace audio {
class Deck;
class Track;
enum class Effect;
void Play(Effect effect);
} // namespace audio

/// Plays one MP3 file at a time, from any point, on the system's default sound device. Without a
/// device everything runs the same in silence. Nothing here shows a message or throws, and nothing
/// waits: decoding, measuring and the device's affairs happen on threads of its own. Only
/// `OpenFile` waits for the disk, unless an `audio::Cue` has got the song ready before.
///
/// All songs are heard at one loudness, that of the song as a whole being brought to -16 LUFS, and
/// none beyond full scale; the files stay as they are. The loudness is measured from the opening on
/// and usually known when `Play` is called. The sound device is open from `OpenFile` or `SeekTo` on
/// for some seconds, and while something is heard.
///
/// All functions are called from one thread, that of the user interface. Times are in seconds.
/// Without an open file all but `OpenFile` do nothing.
class c_XAudio {
public:
    c_XAudio();
    ~c_XAudio(); ///< stops
    c_XAudio(const c_XAudio&) = delete;
    c_XAudio& operator=(const c_XAudio&) = delete;

    /// Duration of the open file; -1 if none was ever opened, 0 if the last one could not be.
    double Length() const;

    /// What is heard now, from 0 to `Length`; without a file as `Length`. Between two calls that
    /// move it never runs backwards; stays at `Length` when the song has ended.
    double Position() const;

    /// Stops what was playing and opens another file at its start, at normal speed, without playing
    /// it. 1 on success, 0 if it is no readable MP3 file; then no file is open.
    std::int16_t OpenFile(const std::filesystem::path& path);

    /// Moves the playing position, brought into 0 to `Length`; playing goes on there. Always 0.
    std::int16_t SeekTo(double position);

    /// Starts playing or goes on; after the song's end only once the position was moved. Always 1.
    std::int16_t Play();

    /// Stops and goes to 0.
    void StopPlay();

    /// Pauses, even if nothing plays, or goes on if it was the last to pause since `Play`.
    void PausePlay();

    /// Speed factor, at once; 1 is normal. Only factors from 1/8 to 8 are taken.
    void SetRate(double rate);

private:
    friend void audio::Play(audio::Effect effect);

    std::unique_ptr<audio::Deck> mDeck;
    std::shared_ptr<audio::Track> mTrack; // none without an open file
    bool mEverOpened = false;
    bool mPaused = false;
};

/// The clip player of the whole program; whoever opens a file takes the sound over. Created by the
/// first `Audio()`.
extern std::unique_ptr<c_XAudio> gAudio;

/// `gAudio`, created if need be.
c_XAudio& Audio();
