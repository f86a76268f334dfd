#pragma once

#include <atomic>
#include <functional>
#include <optional>

namespace audio {

class Mp3Stream;

/// The integrated loudness that songs are played at, in LUFS.
constexpr double kPlayedLoudness = -16;

/// The gain that brings a sound of `lufs` to the loudness of all, as a factor; nothing for silence.
/// Raises by 20 dB at most: what is still softer is noise rather than music.
std::optional<float> LevellingGain(double lufs);

/// What is known of a song's loudness. One thread measures it while others ask.
///
/// The song is levelled as a whole, by its integrated loudness (EBU R128), as ReplayGain does with
/// its track gain: a quiet passage of it stays quieter than a loud one.
class SongLevel {
public:
    /// The gain as a factor, as far as the song was listened to; nothing as long as nothing, or
    /// nothing but silence, was heard.
    std::optional<float> Gain() const;

    /// Listens to one minute, spread over the song in short pieces, to all of a shorter song. What
    /// is known gets better from piece to piece; each takes about 3 ms, and after it `goOn` is
    /// asked whether to listen to the next.
    void Measure(
        Mp3Stream& stream, const std::function<bool()>& goOn = [] { return true; });

private:
    std::atomic<float> mGain = 0; // not known yet
};

} // namespace audio
