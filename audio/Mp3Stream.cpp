#include "audio/Mp3Stream.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace audio {

namespace {

constexpr long kResyncLimit = 65536; // bytes of garbage passed over inside a file
constexpr long kPreFrames = 10;      // fewer give wrong first samples after a seek at low bit rates
constexpr long kIndexGrowth = -1000; // negative: one entry for every frame, growing by so many

ssize_t ReadBytes(void* file, void* to, size_t count) {
    return static_cast<ssize_t>(static_cast<InputFile*>(file)->Read(to, count));
}

off_t SeekBytes(void* file, off_t offset, int whence) {
    return static_cast<off_t>(static_cast<InputFile*>(file)->Seek(offset, whence));
}

} // namespace

std::unique_ptr<Mp3Stream> Mp3Stream::Open(const std::filesystem::path& path,
                                           std::stop_token stop) {
    std::unique_ptr<Mp3Stream> stream(new Mp3Stream);
    if (!stream->mFile.Open(path, std::move(stop)) || !stream->Prepare())
        return nullptr;
    return stream;
}

bool Mp3Stream::Prepare() {
    if (!Start(MPG123_GAPLESS) || mpg123_scan(mHandle.get()) != MPG123_OK)
        return false;
    mFrames = mpg123_length(mHandle.get());
    // In files joined together the gapless information is that of the first only, and the library
    // counts all frames by the rate of one of them.
    if (Joined())
        mFrames = MapFrames() ? mMap->Frames() : 0;
    return mFrames > 0;
}

/// Whether MPEG frames differ. The library does not always say so of damaged files, but then finds
/// the wrong places in them.
bool Mp3Stream::Joined() {
    mpg123_handle* handle = mHandle.get();
    long joined = 0;
    mpg123_getstate(handle, MPG123_FRANKENSTEIN, &joined, nullptr);
    const auto finds = [&](std::int64_t frame) {
        return mpg123_seek(handle, frame, SEEK_SET) == frame;
    };
    return joined != 0 || !finds(mFrames / 4) || !finds(mFrames / 2) || !finds(mFrames * 3 / 4) ||
           !finds(mFrames - 1) || !finds(0);
}

/// Opens a decoder at the start of the file; `gapless` is MPG123_GAPLESS or 0.
bool Mp3Stream::Start(long gapless) {
    mHandle.reset(mpg123_new(nullptr, nullptr));
    mpg123_handle* handle = mHandle.get();
    if (handle == nullptr || mFile.Seek(0, SEEK_SET) != 0)
        return false;
    constexpr long kFlags = MPG123_QUIET | MPG123_SKIP_ID3V2 | MPG123_AUTO_RESAMPLE;
    mpg123_param(handle, MPG123_FLAGS, kFlags | gapless, 0);
    mpg123_param(handle, MPG123_RESYNC_LIMIT, kResyncLimit, 0);
    mpg123_param(handle, MPG123_PREFRAMES, kPreFrames, 0);
    mpg123_param(handle, MPG123_INDEX_SIZE, kIndexGrowth, 0);
    mpg123_format_none(handle);
    mpg123_format2(handle, 0, MPG123_STEREO, MPG123_ENC_FLOAT_32); // 0: at any rate
    mpg123_replace_reader_handle(handle, ReadBytes, SeekBytes, nullptr);
    // A header frame's figures are not trusted: joined and truncated files still carry one.
    return mpg123_open_handle(handle, &mFile) == MPG123_OK && FixFormat();
}

/// Goes through all MPEG frames of a file in which they differ, and back to its start.
bool Mp3Stream::MapFrames() {
    if (!Start(0))
        return false;
    mpg123_handle* handle = mHandle.get();
    mMap.emplace();
    const auto next = [handle] {
        const int result = mpg123_framebyframe_next(handle);
        return result == MPG123_OK || result == MPG123_NEW_FORMAT;
    };
    mpg123_frameinfo frame = {};
    do { // asking for the format has brought the decoder to the first one
        if (mpg123_info(handle, &frame) != MPG123_OK || frame.rate <= 0)
            break;
        const double slower = static_cast<double>(mRate) / static_cast<double>(frame.rate);
        mMap->Add(mpg123_spf(handle) * slower);
    } while (next());
    return mMap->Frames() > 0 && mpg123_seek_frame(handle, 0, SEEK_SET) == 0;
}

/// Keeps the rate of the first frame to the end.
bool Mp3Stream::FixFormat() {
    long rate = 0;
    int channels = 0;
    int encoding = 0;
    mpg123_handle* handle = mHandle.get();
    if (mpg123_getformat(handle, &rate, &channels, &encoding) != MPG123_OK || rate <= 0)
        return false;
    mRate = static_cast<int>(rate);
    return mpg123_format_none(handle) == MPG123_OK &&
           mpg123_format(handle, rate, MPG123_STEREO, MPG123_ENC_FLOAT_32) == MPG123_OK;
}

void Mp3Stream::SeekTo(std::int64_t frame) {
    mNext = mFrames;
    if (frame < 0 || frame >= mFrames)
        return;
    const bool found = !mMap && mpg123_seek(mHandle.get(), frame, SEEK_SET) == frame;
    if (found || ((mMap || MapFrames()) && SeekByMap(frame)))
        mNext = frame;
}

/// Goes to the MPEG frame that holds `frame` and decodes up to it.
bool Mp3Stream::SeekByMap(std::int64_t frame) {
    if (frame >= mMap->Frames())
        return false;
    const FrameMap::Place place = mMap->At(frame);
    if (mpg123_seek_frame(mHandle.get(), place.number, SEEK_SET) != place.number)
        return false;
    std::array<Frame, 1152> passed;
    auto left = static_cast<std::size_t>(frame - place.start);
    std::size_t got = 1;
    while (left > 0 && got > 0) {
        got = Decode(std::span(passed).first(std::min(left, passed.size())));
        left -= got;
    }
    return true;
}

std::size_t Mp3Stream::Read(std::span<Frame> frames) {
    const auto left = static_cast<std::size_t>(mFrames - mNext);
    const std::size_t got = Decode(frames.first(std::min(frames.size(), left)));
    mNext = got > 0 ? mNext + static_cast<std::int64_t>(got) : mFrames;
    return got;
}

/// Fills at most `frames` with what comes next and returns how many; 0 where there is no more.
std::size_t Mp3Stream::Decode(std::span<Frame> frames) {
    std::size_t bytes = 0;
    int result = MPG123_NEW_FORMAT;
    while (!frames.empty() && bytes == 0 && result == MPG123_NEW_FORMAT)
        result = mpg123_read(mHandle.get(), frames.data(), frames.size_bytes(), &bytes);
    return bytes / sizeof(Frame);
}

} // namespace audio
