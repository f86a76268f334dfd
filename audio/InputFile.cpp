#include "audio/InputFile.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

namespace audio {

namespace {
constexpr std::size_t kBufferSize = std::size_t{64} * 1024;
}

bool InputFile::Open(const std::filesystem::path& path, std::stop_token stop) {
    mStop = std::move(stop);
    mFile.emplace(path);
    return !mFile->Error();
}

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
    const std::int64_t got = mFile->ReadAt(mPosition, mBuffer);
    mBufferStart = mPosition;
    mBuffered = static_cast<std::size_t>(std::max<std::int64_t>(got, 0));
    return got >= 0;
}

std::int64_t InputFile::Seek(std::int64_t offset, int whence) {
    const std::int64_t base = whence == SEEK_CUR   ? mPosition
                              : whence == SEEK_END ? mFile->Size()
                                                   : 0;
    if (base + offset < 0)
        return -1;
    return mPosition = base + offset;
}

} // namespace audio
