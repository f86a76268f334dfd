#include "platform/File.h"

#include "platform/Aside.h"
#include "platform/RegularFile.h"
#include "platform/Text.h"

#include <QCoreApplication>
#include <atomic>
#include <chrono>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#ifdef SONGRUSH_POSIX
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace platform {

namespace fs = std::filesystem;
using Access = RegularFile::Access;

namespace {

/// Makes `file` the target of the symbolic links that it names, which need not exist.
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
        RemoveLeftovers(folder);
        static std::atomic<unsigned> number = 0;
        const std::string start =
            std::string(kStart) + std::to_string(QCoreApplication::applicationPid()) + '-';
        do {
            // Not based on the final name, which may have the greatest length already.
            mPath = folder / (start + std::to_string(++number)).append(kEnd);
            mFile.emplace(mPath, Access::Create);
        } while (mFile->Error() == std::errc::file_exists);
        mError = mFile->Error();
    }
    ~TemporaryFile() {
        mFile.reset();
        std::error_code ignored;
        if (!mError && !mRenamed)
            fs::remove(mPath, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Why the file could not be made; nothing below may be called then.
    std::error_code Error() const { return mError; }

    /// Best effort: some file systems keep no permissions.
    void SetPermissions(fs::perms permissions) const {
        std::error_code ignored;
        fs::permissions(mPath, permissions, ignored);
    }

    std::error_code Fill(QByteArrayView bytes) {
        const std::error_code error = mFile->WriteAt(0, bytes);
        return error ? error : FlushToDisk(mPath);
    }

    std::error_code RenameTo(const fs::path& file) {
        mFile.reset(); // some systems rename no open file
        std::error_code error;
        fs::rename(mPath, file, error);
        mRenamed = !error;
        return error;
    }

private:
    static constexpr std::string_view kStart = ".songrush-";
    static constexpr std::string_view kEnd = ".tmp";

    /// Deletes, on another thread, what killed runs of the program left in a folder: files older
    /// than this run's first one. Only the first call for a folder does so.
    static void RemoveLeftovers(const fs::path& folder) {
        static const auto oldest = fs::file_time_type::clock::now() - std::chrono::seconds(1);
        static std::mutex mutex;
        static std::set<fs::path> done;
        const std::lock_guard lock(mutex);
        if (done.insert(folder).second)
            Aside([folder](const std::stop_token&) { RemoveOlder(folder, oldest); });
    }

    static void RemoveOlder(const fs::path& folder, fs::file_time_type oldest) {
        std::error_code error;
        for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end;
             !error && entry != end; entry.increment(error)) {
            const std::string name = entry->path().filename().string();
            std::error_code ignored;
            if (name.starts_with(kStart) && name.ends_with(kEnd) &&
                entry->last_write_time(ignored) < oldest)
                fs::remove(entry->path(), ignored);
        }
    }

    fs::path mPath;
    std::optional<RegularFile> mFile;
    bool mRenamed = false;
    std::error_code mError;
};

/// For systems whose rename always replaces: claims the name with an empty file, which fails if the
/// name is taken, and renames over that.
std::error_code ClaimAndRename(const fs::path& from, const fs::path& to) {
    if (const std::error_code error = RegularFile(to, Access::Create).Error())
        return error;
    std::error_code error;
    fs::rename(from, to, error);
    std::error_code ignored;
    if (error)
        fs::remove(to, ignored);
    return error;
}

} // namespace

std::error_code ReadWholeFile(const fs::path& file, QByteArray& bytes) {
    bytes.clear();
    RegularFile opened(file);
    if (opened.Error())
        return opened.Error();
    QByteArray read(static_cast<qsizetype>(opened.Size()), Qt::Uninitialized);
    const std::int64_t got = opened.ReadAt(0, {read.data(), static_cast<std::size_t>(read.size())});
    if (got < 0)
        return make_error_code(std::errc::io_error);
    read.truncate(got);
    bytes = std::move(read);
    return {};
}

bool ReadTail(const fs::path& file, std::span<char> tail) {
    RegularFile opened(file);
    return !opened.Error() && ReadTail(opened, tail);
}

bool ReadTail(RegularFile& file, std::span<char> tail) {
    const auto length = static_cast<std::int64_t>(tail.size());
    return file.Size() >= length && file.ReadAt(file.Size() - length, tail) == length;
}

std::error_code ReplaceTail(const fs::path& file, std::size_t replaced, QByteArrayView bytes) {
    RegularFile opened(file, Access::Change);
    if (opened.Error())
        return opened.Error();
    std::string old(replaced, '\0');
    if (!ReadTail(opened, old))
        return make_error_code(std::errc::io_error);
    const std::int64_t offset = opened.Size() - static_cast<std::int64_t>(replaced);
    std::error_code error = opened.WriteAt(offset, bytes);
    if (!error && bytes.size() < static_cast<qsizetype>(replaced))
        fs::resize_file(file, static_cast<std::uintmax_t>(offset + bytes.size()), error);
    if (error) {
        // Needs no space that the file did not have before, so it is not expected to fail.
        std::error_code ignored;
        fs::resize_file(file, static_cast<std::uintmax_t>(opened.Size()), ignored);
        opened.WriteAt(offset, old);
    }
    return error;
}

std::error_code AppendToFile(const fs::path& file, QByteArrayView bytes) {
    RegularFile opened(file, Access::ChangeOrCreate);
    return opened.Error() ? opened.Error() : opened.WriteAt(opened.Size(), bytes);
}

std::error_code ReplaceFile(const fs::path& file, QByteArrayView bytes) {
    fs::path target = file;
    if (const std::error_code error = FollowLinks(target))
        return error;
    std::error_code error;
    const fs::file_status old = fs::status(target, error);
    if (fs::exists(old) && !fs::is_regular_file(old))
        return make_error_code(std::errc::invalid_argument);
    TemporaryFile temporary(target.parent_path());
    if (temporary.Error())
        return temporary.Error();
    if (fs::exists(old))
        temporary.SetPermissions((old.permissions() & fs::perms::all) | fs::perms::owner_read |
                                 fs::perms::owner_write);
    error = temporary.Fill(bytes);
    if (!error)
        error = temporary.RenameTo(target);
    if (!error)
        FlushToDisk(target.parent_path());
    return error;
}

#ifdef SONGRUSH_POSIX

std::error_code FlushToDisk(const fs::path& path) {
    const int handle = open(path.empty() ? "." : path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool flushed = handle >= 0 && fsync(handle) == 0;
    const std::error_code error(flushed ? 0 : errno, std::generic_category());
    if (handle >= 0)
        close(handle);
    return error;
}

#else

std::error_code FlushToDisk(const fs::path&) { return {}; }

#endif

std::error_code RenameNoReplace(const fs::path& from, const fs::path& to) {
    // On a file system that ignores case the new name leads to the file itself.
    std::error_code error;
    if (from != to && TextFromPath(from).compare(TextFromPath(to), Qt::CaseInsensitive) == 0 &&
        fs::equivalent(from, to, error)) {
        fs::rename(from, to, error);
        return error;
    }
#if defined(SONGRUSH_POSIX) && defined(RENAME_NOREPLACE)
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return {};
    if (errno != EINVAL && errno != ENOSYS)
        return {errno, std::generic_category()};
#endif
    return ClaimAndRename(from, to);
}

std::error_code ClearReadOnly(const fs::path& file) {
    std::error_code error;
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, error);
    return error;
}

} // namespace platform
