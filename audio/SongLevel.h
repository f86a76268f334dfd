#pragma once

#include <atomic>
#include <functional>
#include <optional>

namespace audio {

class Mp3Stream;

/// The integrated loudness that songs are played at, in LUFS.
constexpr double kPlayedLoudness = -16;

/// The factor that brings a sound of `lufs` to the loudness of all songs; nothing for silence.
/// Raises by 20 dB at most: anything softer is noise rather than music.
std::optional<float> LevellingGain(double lufs);

/// What is known of a song's loudness. One thread measures it while others ask.
///
/// The song is levelled as a whole, by its integrated loudness (EBU R128), as ReplayGain does with
/// its track gain: a quiet passage of it stays quieter than a loud one.
class SongLevel {
public:
    /// The gain as a factor, from what has been measured so far; nothing while that is only
    /// silence, or nothing.
    std::optional<float> Gain() const;

    /// Measures one minute, in short pieces spread over the song, or all of a shorter song. The
    /// gain gets better with each piece. A piece takes about 3 ms; after it `goOn` is asked whether
    /// to measure the next.
    void Measure(
        Mp3Stream& stream, const std::function<bool()>& goOn = [] { return true; });

private:
    std::atomic<float> mGain = 0; // 0: not known yet
};

} // namespace audio
