#include "audio/InputFile.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

#ifdef __unix__
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace audio {

namespace {
constexpr std::size_t kBufferSize = 64 * 1024;
}

#ifdef __unix__

InputFile::~InputFile() {
    if (mHandle >= 0)
        close(mHandle);
}

bool InputFile::Open(const std::filesystem::path& path, std::stop_token stop) {
    mStop = std::move(stop);
    // Without O_NONBLOCK a named pipe would hold the caller until somebody writes to it.
    mHandle = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    struct stat status = {};
    if (mHandle < 0 || fstat(mHandle, &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    mSize = status.st_size;
    return true;
}

std::int64_t InputFile::ReadAt(std::int64_t offset, void* to, std::size_t count) {
    ssize_t got = 0;
    do {
        got = pread(mHandle, to, count, static_cast<off_t>(offset));
    } while (got < 0 && errno == EINTR);
    return got;
}

#else

InputFile::~InputFile() = default;

bool InputFile::Open(const std::filesystem::path& path, std::stop_token stop) {
    mStop = std::move(stop);
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return false;
    mSize = static_cast<std::int64_t>(std::filesystem::file_size(path, error));
    mFile.open(path, std::ios::binary);
    return !error && mFile.is_open();
}

std::int64_t InputFile::ReadAt(std::int64_t offset, void* to, std::size_t count) {
    mFile.clear();
    mFile.seekg(offset);
    mFile.read(static_cast<char*>(to), static_cast<std::streamsize>(count));
    return mFile.bad() ? -1 : mFile.gcount();
}

#endif

std::int64_t InputFile::Read(void* to, std::size_t count) {
    auto* out = static_cast<char*>(to);
    std::size_t done = 0;
    while (done < count) {
        if (mStop.stop_requested() || !Fill())
            return -1;
        const auto skip = static_cast<std::size_t>(mPosition - mBufferStart);
        const std::size_t part = std::min(count - done, mBuffered - skip);
        if (part == 0)
            break;
        std::memcpy(out + done, mBuffer.data() + skip, part);
        done += part;
        mPosition += static_cast<std::int64_t>(part);
    }
    return static_cast<std::int64_t>(done);
}

/// Makes the buffer hold what follows the reading position, nothing at the end of the file.
bool InputFile::Fill() {
    const std::int64_t skip = mPosition - mBufferStart;
    if (skip >= 0 && skip < static_cast<std::int64_t>(mBuffered))
        return true;
    mBuffer.resize(kBufferSize);
    const std::int64_t got = ReadAt(mPosition, mBuffer.data(), mBuffer.size());
    mBufferStart = mPosition;
    mBuffered = static_cast<std::size_t>(std::max<std::int64_t>(got, 0));
    return got >= 0;
}

std::int64_t InputFile::Seek(std::int64_t offset, int whence) {
    const std::int64_t base = whence == SEEK_CUR ? mPosition : whence == SEEK_END ? mSize : 0;
    if (base + offset < 0)
        return -1;
    return mPosition = base + offset;
}

} // namespace audio
