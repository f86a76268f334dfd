#include "platform/ProgramFolder.h"

#include "platform/System.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QStandardPaths>
#include <mutex>

namespace platform {

namespace fs = std::filesystem;

namespace {

std::mutex gLock; // threads ask for the folder, too
fs::path gFolder;

fs::path ExecutableFolder() {
#ifdef SONGRUSH_POSIX
    // Asked of Linux itself: Qt's text would lose the bytes of a path that is not valid UTF-8.
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    if (!error)
        return executable.parent_path();
#endif
    return fs::path(QCoreApplication::applicationDirPath().toStdU16String());
}

fs::path UserFolder(QStandardPaths::StandardLocation kind) {
    return fs::path(QStandardPaths::writableLocation(kind).toStdU16String());
}

struct ProgramFolders {
    fs::path own;
    fs::path shipped;
};

/// Found out each time: the folder may be renamed while the program runs.
ProgramFolders Folders() {
    const fs::path executable = ExecutableFolder();
    const fs::path shared = (executable / SONGRUSH_SHARED_DATA).lexically_normal();
    std::error_code error;
    if (fs::exists(executable / "Images", error) || !fs::exists(shared / "Images", error))
        return {executable, executable};
    return {UserFolder(QStandardPaths::GenericDataLocation) / "Songrush", shared};
}

const fs::path& FolderAtStart() {
    static const fs::path folder = Folders().own;
    return folder;
}

} // namespace

fs::path ProgramFolder() {
    FolderAtStart();
    const std::lock_guard lock(gLock);
    return gFolder.empty() ? Folders().own : gFolder;
}

fs::path WhereNow(const fs::path& path) {
    const fs::path within = path.lexically_relative(FolderAtStart());
    const bool outside = within.empty() || *within.begin() == "..";
    return outside ? path : Folders().own / within;
}

void SetProgramFolder(const fs::path& folder) {
    const std::lock_guard lock(gLock);
    gFolder = folder;
}

fs::path ShippedFolder() { return Folders().shipped; }

fs::path DocumentsFolder() { return UserFolder(QStandardPaths::DocumentsLocation); }

fs::path MusicFolder() { return UserFolder(QStandardPaths::MusicLocation); }

fs::path HomeFolder() { return UserFolder(QStandardPaths::HomeLocation); }

fs::path CacheFolder() {
    const fs::path folder = UserFolder(QStandardPaths::GenericCacheLocation) / "Songrush";
    std::error_code error;
    fs::create_directories(folder, error);
    return folder;
}

fs::path RootFolder() { return ProgramFolder().root_path(); }

fs::path FindWithoutCase(const fs::path& folder, const std::string& name) {
    std::error_code error;
    if (fs::exists(folder / name, error))
        return folder / name;
    const QByteArray wanted = QByteArray::fromStdString(name);
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const QByteArray found = QByteArray::fromStdString(entry->path().filename().string());
        if (found.compare(wanted, Qt::CaseInsensitive) == 0)
            return entry->path();
    }
    return folder / name;
}

} // namespace platform
