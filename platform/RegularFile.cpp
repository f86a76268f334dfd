#include "platform/RegularFile.h"

#include <cerrno>

#ifdef SONGRUSH_POSIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace platform {

namespace fs = std::filesystem;

namespace {

/// Why the last call failed; streams usually set `errno`, too.
std::error_code LastError() {
    return errno != 0 ? std::error_code(errno, std::generic_category())
                      : make_error_code(std::errc::io_error);
}

} // namespace

#ifdef SONGRUSH_POSIX

namespace {

int Flags(RegularFile::Access access) {
    switch (access) {
    case RegularFile::Access::Read:
        break;
    case RegularFile::Access::Change:
        return O_RDWR;
    case RegularFile::Access::ChangeOrCreate:
        return O_RDWR | O_CREAT;
    case RegularFile::Access::Create:
        return O_RDWR | O_CREAT | O_EXCL;
    }
    return O_RDONLY;
}

} // namespace

RegularFile::RegularFile(const fs::path& file, Access access)
    // Without O_NONBLOCK a named pipe would hold the caller until somebody opens its other end.
    : mHandle(open(file.c_str(), Flags(access) | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666)) {
    struct stat status {};
    if (mHandle < 0 || fstat(mHandle, &status) != 0)
        mError = LastError();
    else if (!S_ISREG(status.st_mode))
        mError = make_error_code(std::errc::invalid_argument);
    else if (access != Access::Read && (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        mError = make_error_code(std::errc::permission_denied);
    mSize = status.st_size;
}

RegularFile::~RegularFile() {
    if (mHandle >= 0)
        close(mHandle);
}

std::int64_t RegularFile::ReadAt(std::int64_t offset, std::span<char> bytes) {
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
    return static_cast<std::int64_t>(done);
}

std::error_code RegularFile::WriteAt(std::int64_t offset, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const ssize_t done =
            pwrite(mHandle, bytes.data(), static_cast<std::size_t>(bytes.size()), offset);
        if (done < 0 && errno != EINTR)
            return LastError();
        if (done > 0) {
            bytes = bytes.sliced(done);
            offset += done;
        }
    }
    return {};
}

#else

namespace {

/// Why a file must not be opened with this access, as far as can be told beforehand.
std::error_code Refusal(const fs::path& file, RegularFile::Access access) {
    using Access = RegularFile::Access;
    constexpr fs::perms kWriters =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code error;
    const fs::file_status status =
        access == Access::Create ? fs::symlink_status(file, error) : fs::status(file, error);
    if (status.type() == fs::file_type::not_found)
        return access == Access::Read || access == Access::Change
                   ? make_error_code(std::errc::no_such_file_or_directory)
                   : std::error_code();
    if (error)
        return error;
    if (access == Access::Create)
        return make_error_code(std::errc::file_exists);
    if (!fs::is_regular_file(status))
        return make_error_code(std::errc::invalid_argument);
    const bool readOnly = (status.permissions() & kWriters) == fs::perms::none;
    return access != Access::Read && readOnly ? make_error_code(std::errc::permission_denied)
                                              : std::error_code();
}

} // namespace

RegularFile::RegularFile(const fs::path& file, Access access) : mError(Refusal(file, access)) {
    if (mError)
        return;
    std::ios::openmode mode = std::ios::binary | std::ios::in;
    if (access != Access::Read)
        mode |= std::ios::out;
    if (!fs::exists(file, mError))
        mode |= std::ios::trunc; // creates it
    // Unbuffered: bytes that could not be written would stay in a buffer and be written later.
    mStream.rdbuf()->pubsetbuf(nullptr, 0);
    errno = 0;
    mStream.open(file, mode);
    if (mStream.is_open())
        mSize = static_cast<std::int64_t>(fs::file_size(file, mError));
    else
        mError = LastError();
}

RegularFile::~RegularFile() = default;

std::int64_t RegularFile::ReadAt(std::int64_t offset, std::span<char> bytes) {
    mStream.clear();
    mStream.seekg(offset);
    mStream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return mStream.bad() ? -1 : mStream.gcount();
}

std::error_code RegularFile::WriteAt(std::int64_t offset, QByteArrayView bytes) {
    mStream.clear();
    mStream.seekp(offset);
    errno = 0;
    mStream.write(bytes.data(), bytes.size());
    return mStream.good() ? std::error_code() : LastError();
}

#endif

} // namespace platform
