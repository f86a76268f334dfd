#include "platform/Folder.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include "platform/RegularFile.h"

#include <dirent.h>
#include <string_view>
#else
#include "platform/File.h"
#endif

namespace platform {

namespace fs = std::filesystem;

#ifdef Q_OS_UNIX

struct Folder::Handle {
    explicit Handle(const fs::path& path) : listing(opendir(path.c_str())) {}
    ~Handle() {
        if (listing)
            closedir(listing);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    int Number() const { return dirfd(listing); }

    DIR* listing;
};

namespace {

Folder::Kind KindBehindLinks(int folder, const char* name) {
    struct stat status {};
    if (fstatat(folder, name, &status, 0) != 0)
        return Folder::Kind::Other;
    if (S_ISDIR(status.st_mode))
        return Folder::Kind::Folder;
    return S_ISREG(status.st_mode) ? Folder::Kind::File : Folder::Kind::Other;
}

Folder::Kind KindOf(int folder, const dirent& entry) {
    switch (entry.d_type) {
    case DT_REG:
        return Folder::Kind::File;
    case DT_DIR:
        return Folder::Kind::Folder;
    case DT_LNK:
    case DT_UNKNOWN: // some file systems do not tell
        return KindBehindLinks(folder, entry.d_name);
    default:
        return Folder::Kind::Other;
    }
}

} // namespace

Folder::Folder(const fs::path& path) : mHandle(std::make_unique<Handle>(path)) {}

Folder::~Folder() = default;

bool Folder::Open() const { return mHandle->listing != nullptr; }

std::string Folder::Identity() const {
    struct stat status {};
    fstat(mHandle->Number(), &status);
    return std::to_string(status.st_dev) + ':' + std::to_string(status.st_ino);
}

bool Folder::Next(Entry& entry) {
    while (const dirent* found = readdir(mHandle->listing)) {
        const std::string_view name = found->d_name;
        if (name == "." || name == "..")
            continue;
        entry.name = name;
        entry.kind = KindOf(mHandle->Number(), *found);
        return true;
    }
    return false;
}

bool Folder::ReadTail(const Entry& file, std::span<char> tail) const {
    const RegularFile opened(mHandle->Number(), file.name.c_str(), O_RDONLY);
    return !opened.Error() && opened.ReadTail(tail);
}

#else

struct Folder::Handle {
    explicit Handle(const fs::path& folder) : path(folder), next(folder, error) {}

    fs::path path;
    std::error_code error;
    fs::directory_iterator next;
};

namespace {

Folder::Kind KindOf(const fs::directory_entry& entry) {
    std::error_code error;
    if (entry.is_directory(error))
        return Folder::Kind::Folder;
    return entry.is_regular_file(error) ? Folder::Kind::File : Folder::Kind::Other;
}

} // namespace

Folder::Folder(const fs::path& path) : mHandle(std::make_unique<Handle>(path)) {}

Folder::~Folder() = default;

bool Folder::Open() const { return !mHandle->error; }

std::string Folder::Identity() const {
    std::error_code error;
    const std::u8string real = fs::canonical(mHandle->path, error).u8string();
    return std::string(real.begin(), real.end());
}

bool Folder::Next(Entry& entry) {
    if (mHandle->error || mHandle->next == fs::directory_iterator())
        return false;
    entry.name = mHandle->next->path().filename().native();
    entry.kind = KindOf(*mHandle->next);
    mHandle->next.increment(mHandle->error);
    return true;
}

bool Folder::ReadTail(const Entry& file, std::span<char> tail) const {
    return platform::ReadTail(mHandle->path / file.name, tail);
}

#endif

} // namespace platform
