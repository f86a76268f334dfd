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
/// waits: decoding, measuring and dealing with the device happen on threads of its own. Only
/// `OpenFile` waits for the disk, unless an `audio::Cue` has the song ready.
///
/// All songs are heard at one loudness: each as a whole is brought to -16 LUFS, and none exceeds
/// full scale. The files stay as they are. Measuring begins when the song is opened, so the
/// loudness is usually known when `Play` is called. The sound device is open for some seconds after
/// `OpenFile` or `SeekTo`, and while something is heard.
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

    /// The position that is heard now, from 0 to `Length`; the same as `Length` without a file.
    /// Between two calls that move it, it never runs backwards; it stays at `Length` when the song
    /// has ended.
    double Position() const;

    /// Stops what was playing and opens another file at its start, at normal speed, without playing
    /// it. 1 on success, 0 if it is not a readable MP3 file; then no file is open.
    std::int16_t OpenFile(const std::filesystem::path& path);

    /// Moves the playing position, clamped to 0 to `Length`; playing goes on there. Returns 0.
    std::int16_t SeekTo(double position);

    /// Starts playing or goes on; at the song's end only once the position has been moved. Returns
    /// 1.
    std::int16_t Play();

    /// Stops and goes to 0.
    void StopPlay();

    /// Pauses, even if nothing plays; every second call since `Play` goes on instead.
    void PausePlay();

    /// Sets the speed factor, at once; 1 is normal. Factors outside 1/8 to 8 are ignored.
    void SetRate(double rate);

private:
    friend void audio::Play(audio::Effect effect);

    std::unique_ptr<audio::Deck> mDeck;
    std::shared_ptr<audio::Track> mTrack; // none without an open file
    bool mEverOpened = false;
    bool mPaused = false;
};

/// The clip player of the whole program; whoever opens a file takes over the sound. Created by the
/// first `Audio()`.
extern std::unique_ptr<c_XAudio> gAudio;

/// `gAudio`, created if need be.
c_XAudio& Audio();
