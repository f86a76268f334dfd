#pragma once

#include "audio/Frame.h"
#include "audio/Limiter.h"
#include "audio/Mp3Stream.h"
#include "audio/SongLevel.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>

namespace audio {

/// A song as it is played: as loud as all songs, and with true peaks below full scale. `Rate` and
/// `Length` may be called on any thread, the rest on one thread at a time.
class LevelledStream {
public:
    /// The measuring of `level` may still be under way.
    LevelledStream(std::unique_ptr<Mp3Stream> stream, std::shared_ptr<SongLevel> level);

    /// Frames a second.
    int Rate() const { return mStream->Rate(); }

    /// Duration in seconds.
    double Length() const { return mStream->Length(); }

    /// Makes `frame` (0-based) the next one read.
    void SeekTo(std::int64_t frame);

    /// Reads into `frames`, which is not empty, and returns how many; 0 only at the end. The first
    /// frames after `SeekTo` have the gain known by then or, if none is, one measured on the half
    /// second that follows. The gain slides to a better one when more becomes known.
    std::size_t Read(std::span<Frame> frames);

    /// The frame that is read next.
    std::int64_t Next() const { return mNext; }

    /// Measures the level; see `SongLevel::Measure`. `goOn` may call `Read`.
    void Listen(const std::function<bool()>& goOn);

private:
    float FirstGain();
    void Continue();
    void Amplify(std::span<Frame> frames);

    std::unique_ptr<Mp3Stream> mStream;
    std::shared_ptr<SongLevel> mLevel;
    std::optional<Limiter> mLimiter; // none before the first sound
    std::int64_t mNext = 0;
    std::int64_t mDecoded = 0; // the frame that the limiter gets next
    bool mAway = false;        // the stream is not at mDecoded
    float mGain = 1;
};

} // namespace audio
