#pragma once

#include "audio/Frame.h"
#include "audio/FrameMap.h"
#include "audio/InputFile.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mpg123.h>
#include <optional>
#include <span>
#include <stop_token>

namespace audio {

/// An MP3 file as a sequence of stereo frames at one rate. Lengths and places are exact and honour
/// gapless information, because opening a file scans all of it. `Rate`, `Frames` and `Length` may
/// be called on any thread, the rest on one thread at a time.
class Mp3Stream {
public:
    /// Opens the file at its start; null if it is not a playable MP3 file. Never blocks on anything
    /// but a regular file. Takes about 1 ms for 4 minutes of music. `stop` ends this, and later
    /// reads from the stream, at once.
    static std::unique_ptr<Mp3Stream> Open(const std::filesystem::path& path,
                                           std::stop_token stop = {});

    /// Frames a second, that of the first MP3 frame. Passages with another rate are converted to
    /// it.
    int Rate() const { return mRate; }

    /// Number of frames; above 0.
    std::int64_t Frames() const { return mFrames; }

    /// Duration in seconds.
    double Length() const { return static_cast<double>(mFrames) / mRate; }

    /// Makes `frame` (0-based) the next one read. At or past the end nothing more is read.
    void SeekTo(std::int64_t frame);

    /// Decodes into `frames` and returns how many; 0 only at the end or where the file can no
    /// longer be read.
    std::size_t Read(std::span<Frame> frames);

private:
    struct Deleter {
        void operator()(mpg123_handle* handle) const { mpg123_delete(handle); }
    };

    Mp3Stream() = default;
    bool Prepare();
    bool Start(long gapless);
    bool FixFormat();
    bool Joined();
    bool MapFrames();
    bool SeekByMap(std::int64_t frame);
    std::size_t Decode(std::span<Frame> frames);

    InputFile mFile;
    std::unique_ptr<mpg123_handle, Deleter> mHandle;
    std::optional<FrameMap> mMap; // of a file whose MPEG frames differ
    int mRate = 0;
    std::int64_t mFrames = 0;
    std::int64_t mNext = 0; // from 0 to mFrames
};

} // namespace audio
