#include "platform/File.h"

#include "platform/Text.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include "platform/RegularFile.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#else
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>
#endif

namespace platform {

namespace fs = std::filesystem;

#ifdef Q_OS_UNIX

namespace {

/// Writes all of `bytes`; false on error, which may come after a part was written.
bool WriteAt(int handle, off_t offset, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const ssize_t done =
            pwrite(handle, bytes.data(), static_cast<std::size_t>(bytes.size()), offset);
        if (done < 0 && errno != EINTR)
            return false;
        if (done > 0) {
            bytes = bytes.sliced(done);
            offset += done;
        }
    }
    return true;
}

/// Leads `file` along symbolic links to where they end; there need be nothing.
std::error_code FollowLinks(fs::path& file) {
    constexpr int kMostLinks = 40; // as the Linux kernel does
    for (int i = 0; i < kMostLinks; ++i) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(file, error)))
            return {};
        const fs::path target = fs::read_symlink(file, error);
        if (error)
            return error;
        file = file.parent_path() / target;
    }
    return make_error_code(std::errc::too_many_symbolic_link_levels);
}

/// A new file in a folder, deleted again unless it was renamed to its final name.
class TemporaryFile {
public:
    explicit TemporaryFile(const fs::path& folder) {
        RemoveLeft(folder);
        static std::atomic<unsigned> number = 0;
        do {
            // Not made from the final name, which may be as long as names can be.
            std::string name(kStart);
            name.append(std::to_string(getpid()) + '-' + std::to_string(++number)).append(kEnd);
            mPath = folder / name;
            mHandle = open(mPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        } while (mHandle < 0 && errno == EEXIST);
        if (mHandle < 0)
            mError = RegularFile::LastError();
    }
    ~TemporaryFile() {
        if (mHandle < 0)
            return;
        close(mHandle);
        if (!mRenamed)
            unlink(mPath.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Why the file could not be made; nothing below may be called then.
    std::error_code Error() const { return mError; }

    /// Best effort: some file systems keep no permissions.
    void SetPermissions(mode_t mode) const { [[maybe_unused]] int done = fchmod(mHandle, mode); }

    std::error_code Fill(QByteArrayView bytes) const {
        return WriteAt(mHandle, 0, bytes) && fsync(mHandle) == 0 ? std::error_code()
                                                                 : RegularFile::LastError();
    }

    std::error_code RenameTo(const fs::path& file) {
        mRenamed = std::rename(mPath.c_str(), file.c_str()) == 0;
        return mRenamed ? std::error_code() : RegularFile::LastError();
    }

private:
    static constexpr std::string_view kStart = ".songrush-";
    static constexpr std::string_view kEnd = ".tmp";

    /// Deletes what processes that were killed have left behind.
    static void RemoveLeft(const fs::path& folder) {
        std::error_code error;
        for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end;
             !error && entry != end; entry.increment(error)) {
            const std::string name = entry->path().filename().string();
            if (name.starts_with(kStart) && name.ends_with(kEnd) &&
                !IsRunning(std::atoi(name.c_str() + kStart.size())))
                unlink(entry->path().c_str());
        }
    }

    static bool IsRunning(pid_t process) {
        return process > 0 && (kill(process, 0) == 0 || errno != ESRCH);
    }

    fs::path mPath;
    int mHandle = -1;
    bool mRenamed = false;
    std::error_code mError;
};

/// For file systems that cannot refuse to replace: takes the name with an empty file, which works
/// only if nothing had it, and renames over that.
std::error_code ClaimAndRename(const fs::path& from, const fs::path& to) {
    const int claim = open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (claim < 0)
        return RegularFile::LastError();
    close(claim);
    if (std::rename(from.c_str(), to.c_str()) == 0)
        return {};
    const std::error_code error = RegularFile::LastError();
    unlink(to.c_str());
    return error;
}

} // namespace

std::error_code ReadWholeFile(const fs::path& file, QByteArray& bytes) {
    bytes.clear();
    const RegularFile opened(AT_FDCWD, file.c_str(), O_RDONLY);
    if (opened.Error())
        return opened.Error();
    QByteArray read(static_cast<qsizetype>(opened.Size()), Qt::Uninitialized);
    const ssize_t got = opened.ReadAt(0, {read.data(), static_cast<std::size_t>(read.size())});
    if (got < 0)
        return RegularFile::LastError();
    read.truncate(got);
    bytes = std::move(read);
    return {};
}

bool ReadTail(const fs::path& file, std::span<char> tail) {
    const RegularFile opened(AT_FDCWD, file.c_str(), O_RDONLY);
    return !opened.Error() && opened.ReadTail(tail);
}

std::error_code ReplaceTail(const fs::path& file, std::size_t replaced, QByteArrayView bytes) {
    const RegularFile opened(AT_FDCWD, file.c_str(), O_RDWR);
    if (opened.Error())
        return opened.Error();
    if (opened.ReadOnly())
        return make_error_code(std::errc::permission_denied);
    std::string old(replaced, '\0');
    if (!opened.ReadTail(old))
        return make_error_code(std::errc::io_error);
    const off_t offset = opened.Size() - static_cast<off_t>(replaced);
    if (WriteAt(opened.Handle(), offset, bytes))
        return {};
    const std::error_code error = RegularFile::LastError();
    // Needs no space that the file did not have before, so it is not expected to fail.
    [[maybe_unused]] const bool shortened = ftruncate(opened.Handle(), opened.Size()) == 0;
    WriteAt(opened.Handle(), offset, old);
    return error;
}

std::error_code AppendToFile(const fs::path& file, QByteArrayView bytes) {
    const RegularFile opened(AT_FDCWD, file.c_str(), O_WRONLY | O_CREAT);
    if (opened.Error())
        return opened.Error();
    return WriteAt(opened.Handle(), opened.Size(), bytes) ? std::error_code()
                                                          : RegularFile::LastError();
}

std::error_code ReplaceFile(const fs::path& file, QByteArrayView bytes) {
    fs::path target = file;
    if (const std::error_code error = FollowLinks(target))
        return error;
    struct stat old {};
    const bool exists = stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode))
        return make_error_code(std::errc::invalid_argument);
    TemporaryFile temporary(target.parent_path());
    if (temporary.Error())
        return temporary.Error();
    if (exists)
        temporary.SetPermissions((old.st_mode & 0777) | S_IRUSR | S_IWUSR);
    if (const std::error_code error = temporary.Fill(bytes))
        return error;
    if (const std::error_code error = temporary.RenameTo(target))
        return error;
    FlushToDisk(target.parent_path());
    return {};
}

void FlushToDisk(const fs::path& path) {
    const int handle = open(path.empty() ? "." : path.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0)
        return;
    fsync(handle);
    close(handle);
}

std::error_code RenameNoReplace(const fs::path& from, const fs::path& to) {
    // On a file system that does not tell cases apart the new name leads to the file itself.
    std::error_code error;
    if (from != to && TextFromPath(from).compare(TextFromPath(to), Qt::CaseInsensitive) == 0 &&
        fs::equivalent(from, to, error)) {
        fs::rename(from, to, error);
        return error;
    }
#ifdef RENAME_NOREPLACE
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return {};
    if (errno != EINVAL && errno != ENOSYS)
        return RegularFile::LastError();
#endif
    return ClaimAndRename(from, to);
}

std::error_code ClearReadOnly(const fs::path& file) {
    std::error_code error;
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, error);
    return error;
}

std::error_code RemoveFile(const fs::path& file) {
    return unlink(file.c_str()) == 0 || errno == ENOENT ? std::error_code()
                                                        : RegularFile::LastError();
}

#else

namespace {

std::error_code CheckRegular(const QString& file) {
    const QFileInfo info(file);
    if (!info.exists())
        return make_error_code(std::errc::no_such_file_or_directory);
    return info.isFile() ? std::error_code() : make_error_code(std::errc::invalid_argument);
}

std::error_code LastWindowsError() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

std::error_code IoError() { return make_error_code(std::errc::io_error); }

bool ReadTail(QFile& file, std::span<char> tail) {
    const auto length = static_cast<qint64>(tail.size());
    return file.size() >= length && file.seek(file.size() - length) &&
           file.read(tail.data(), length) == length;
}

bool WriteAt(QFile& file, qint64 offset, QByteArrayView bytes) {
    return file.seek(offset) && file.write(bytes.data(), bytes.size()) == bytes.size();
}

} // namespace

std::error_code ReadWholeFile(const fs::path& file, QByteArray& bytes) {
    bytes.clear();
    QFile opened(TextFromPath(file));
    if (const std::error_code error = CheckRegular(opened.fileName()))
        return error;
    if (!opened.open(QIODevice::ReadOnly))
        return make_error_code(std::errc::permission_denied);
    bytes = opened.readAll();
    return opened.error() == QFile::NoError ? std::error_code() : (bytes.clear(), IoError());
}

bool ReadTail(const fs::path& file, std::span<char> tail) {
    QFile opened(TextFromPath(file));
    return !CheckRegular(opened.fileName()) && opened.open(QIODevice::ReadOnly) &&
           ReadTail(opened, tail);
}

std::error_code ReplaceTail(const fs::path& file, std::size_t replaced, QByteArrayView bytes) {
    QFile opened(TextFromPath(file));
    if (const std::error_code error = CheckRegular(opened.fileName()))
        return error;
    if (!opened.open(QIODevice::ReadWrite | QIODevice::Unbuffered | QIODevice::ExistingOnly))
        return make_error_code(std::errc::permission_denied);
    QByteArray old(static_cast<qsizetype>(replaced), '\0');
    const qint64 size = opened.size();
    if (!ReadTail(opened, {old.data(), replaced}))
        return IoError();
    const qint64 offset = size - static_cast<qint64>(replaced);
    if (WriteAt(opened, offset, bytes))
        return {};
    WriteAt(opened, offset, old);
    opened.resize(size);
    return IoError();
}

std::error_code AppendToFile(const fs::path& file, QByteArrayView bytes) {
    QFile opened(TextFromPath(file));
    const std::error_code old = CheckRegular(opened.fileName());
    if (old && old != std::errc::no_such_file_or_directory)
        return old;
    if (!opened.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return make_error_code(std::errc::permission_denied);
    return opened.write(bytes.data(), bytes.size()) == bytes.size() ? std::error_code() : IoError();
}

std::error_code ReplaceFile(const fs::path& file, QByteArrayView bytes) {
    const QString name = TextFromPath(file);
    const std::error_code old = CheckRegular(name);
    if (old && old != std::errc::no_such_file_or_directory)
        return old;
    if (!old)
        ClearReadOnly(file);
    QSaveFile replacement(name);
    if (!replacement.open(QIODevice::WriteOnly))
        return make_error_code(std::errc::permission_denied);
    // Flushed here because `commit` does not notice that its own flush failed.
    if (replacement.write(bytes.data(), bytes.size()) != bytes.size() || !replacement.flush())
        replacement.cancelWriting();
    return replacement.commit() ? std::error_code() : IoError();
}

void FlushToDisk(const fs::path&) {}

std::error_code RenameNoReplace(const fs::path& from, const fs::path& to) {
    return MoveFileExW(from.c_str(), to.c_str(), 0) ? std::error_code() : LastWindowsError();
}

std::error_code ClearReadOnly(const fs::path& file) {
    return SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL) ? std::error_code()
                                                                   : LastWindowsError();
}

std::error_code RemoveFile(const fs::path& file) {
    const QString name = TextFromPath(file);
    const std::error_code old = CheckRegular(name);
    if (old)
        return old == std::errc::no_such_file_or_directory ? std::error_code() : old;
    ClearReadOnly(file);
    return QFile::remove(name) ? std::error_code() : make_error_code(std::errc::permission_denied);
}

#endif

} // namespace platform
