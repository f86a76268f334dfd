#pragma once

#include "platform/RegularFile.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <vector>

namespace audio {

/// A regular file read through one buffer of 64 KiB, so that a reader asking for a few bytes at a
/// time does not cost a system call each. Used by one thread at a time.
class InputFile {
public:
    /// Opens the file once. False, without ever blocking, if it cannot be read or is anything but a
    /// regular file. After a stop nothing more can be read.
    bool Open(const std::filesystem::path& path, std::stop_token stop);

    /// Reads up to `count` bytes; less only at the end of the file. -1 on an error.
    std::int64_t Read(void* to, std::size_t count);

    /// Moves the reading position as `lseek` does and returns the new one; -1 on an error.
    std::int64_t Seek(std::int64_t offset, int whence);

private:
    bool Fill();

    std::optional<platform::RegularFile> mFile;
    std::stop_token mStop;
    std::int64_t mPosition = 0;
    std::int64_t mBufferStart = 0;
    std::size_t mBuffered = 0;
    std::vector<char> mBuffer;
};

} // namespace audio
