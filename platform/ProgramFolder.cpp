#include "platform/ProgramFolder.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QStandardPaths>

namespace platform {

namespace fs = std::filesystem;

namespace {

fs::path gFolder;

fs::path ExecutableFolder() {
#ifdef Q_OS_LINUX
    // Asked of the kernel: Qt's text would lose the bytes of a folder that is no valid UTF-8.
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

} // namespace

fs::path ProgramFolder() { return gFolder.empty() ? ExecutableFolder() : gFolder; }

void SetProgramFolder(const fs::path& folder) { gFolder = folder; }

fs::path DocumentsFolder() { return UserFolder(QStandardPaths::DocumentsLocation); }

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
