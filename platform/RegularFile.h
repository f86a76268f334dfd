#pragma once

#include <cerrno>
#include <fcntl.h>
#include <span>
#include <sys/stat.h>
#include <sys/types.h>
#include <system_error>
#include <unistd.h>

namespace platform {

/// An open regular file of a POSIX system, closed with the object.
class RegularFile {
public:
    /// Opens `name` as seen from the folder handle `folder` (AT_FDCWD: the current folder).
    /// Whatever is no regular file, a pipe for one, is refused without waiting for it; see `Error`.
    RegularFile(int folder, const char* name, int flags)
        : mHandle(openat(folder, name, flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666)) {
        if (mHandle < 0 || fstat(mHandle, &mStatus) != 0)
            mError = LastError();
        else if (!S_ISREG(mStatus.st_mode))
            mError = make_error_code(std::errc::invalid_argument);
    }
    ~RegularFile() {
        if (mHandle >= 0)
            close(mHandle);
    }
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    /// Why the file could not be opened; nothing below may be called then.
    std::error_code Error() const { return mError; }
    int Handle() const { return mHandle; }
    off_t Size() const { return mStatus.st_size; }
    /// A file nobody may write to is read-only for the superuser too.
    bool ReadOnly() const { return (mStatus.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0; }

    /// Reads up to `bytes.size()` bytes from `offset` on and returns how many there were; -1 on
    /// error.
    ssize_t ReadAt(off_t offset, std::span<char> bytes) const {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t got = pread(mHandle, bytes.data() + done, bytes.size() - done,
                                      offset + static_cast<off_t>(done));
            if (got < 0 && errno != EINTR)
                return -1;
            if (got == 0)
                break;
            done += got > 0 ? static_cast<std::size_t>(got) : 0;
        }
        return static_cast<ssize_t>(done);
    }

    /// Fills `tail` with the file's last bytes; false when it has fewer or they cannot be read.
    bool ReadTail(std::span<char> tail) const {
        const auto length = static_cast<off_t>(tail.size());
        return Size() >= length && ReadAt(Size() - length, tail) == length;
    }

    static std::error_code LastError() { return {errno, std::generic_category()}; }

private:
    int mHandle;
    struct stat mStatus {};
    std::error_code mError;
};

} // namespace platform
