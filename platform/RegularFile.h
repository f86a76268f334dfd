#pragma once

#include "platform/System.h"

#include <QByteArrayView>
#include <cstdint>
#include <filesystem>
#include <span>
#include <system_error>

#ifndef SONGRUSH_POSIX
#include <fstream>
#endif

namespace platform {

/// An open regular file, closed with the object. Used by one thread at a time.
class RegularFile {
public:
    enum class Access {
        Read,
        Change,         ///< read and write; an error if read-only, even for the superuser
        ChangeOrCreate, ///< the same, creating the file if need be
        Create,         ///< a new file; an error if anything of that name exists
    };

    /// Opens the file, following links, and never blocks: anything but a regular file, such as a
    /// pipe, is an error; see `Error`.
    explicit RegularFile(const std::filesystem::path& file, Access access = Access::Read);
    ~RegularFile();
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    /// Why the file could not be opened; nothing below may be called then.
    std::error_code Error() const { return mError; }

    /// In bytes, as it was when the file was opened.
    std::int64_t Size() const { return mSize; }

    /// Reads up to `bytes.size()` bytes from `offset` on and returns how many there were; fewer
    /// only at the end of the file. -1 on an error.
    std::int64_t ReadAt(std::int64_t offset, std::span<char> bytes);

    /// Writes all of `bytes` from `offset` on; on error a part may have been written.
    std::error_code WriteAt(std::int64_t offset, QByteArrayView bytes);

private:
#ifdef SONGRUSH_POSIX
    int mHandle = -1;
#else
    std::fstream mStream;
#endif
    std::int64_t mSize = 0;
    std::error_code mError;
};

} // namespace platform
