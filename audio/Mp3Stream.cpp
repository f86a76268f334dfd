#include "audio/Mp3Stream.h"

#include <algorithm>
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
    if (!Scan(MPG123_GAPLESS))
        return false;
    // In files joined together the gapless information is that of the first only; going by it,
    // seeks would miss by up to an MP3 frame in all the others.
    long joined = 0;
    mpg123_getstate(mHandle.get(), MPG123_FRANKENSTEIN, &joined, nullptr);
    if (joined != 0 && !Scan(0))
        return false;
    mFrames = mpg123_length(mHandle.get());
    return mFrames > 0;
}

/// Opens a decoder and has it look through the whole file; `gapless` is MPG123_GAPLESS or 0.
bool Mp3Stream::Scan(long gapless) {
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
    return mpg123_open_handle(handle, &mFile) == MPG123_OK && FixFormat() &&
           mpg123_scan(handle) == MPG123_OK;
}

/// Has the rate of the first frame kept to the end.
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
    const off_t reached =
        frame < mFrames ? mpg123_seek(mHandle.get(), static_cast<off_t>(frame), SEEK_SET) : -1;
    mNext = reached < 0 ? mFrames : reached;
}

std::size_t Mp3Stream::Read(std::span<Frame> frames) {
    const auto wanted = static_cast<std::size_t>(
        std::min(static_cast<std::int64_t>(frames.size()), mFrames - mNext));
    std::size_t bytes = 0;
    int result = MPG123_NEW_FORMAT;
    while (wanted > 0 && bytes == 0 && result == MPG123_NEW_FORMAT)
        result = mpg123_read(mHandle.get(), frames.data(), wanted * sizeof(Frame), &bytes);
    const std::size_t got = bytes / sizeof(Frame);
    mNext = got > 0 ? mNext + static_cast<std::int64_t>(got) : mFrames;
    return got;
}

} // namespace audio
