#include "library/SongFolders.h"

#include "library/SongScan.h"
#include "platform/Aside.h"
#include "platform/ProgramFolder.h"
#include "platform/Settings.h"

#include <memory>
#include <mutex>

namespace library {

namespace fs = std::filesystem;

namespace {

const QString kApplication = QStringLiteral("Songrush");
const QString kDirs = QStringLiteral("Dirs");
const QString kMp3Dir = QStringLiteral("Mp3Dir");

/// What is found out aside.
struct Look {
    std::mutex mutex;
    fs::path found; ///< guarded by the mutex; empty until it is known
};

std::shared_ptr<Look> gLook;

fs::path Remembered() { return platform::ReadPathSetting(kApplication, kDirs, kMp3Dir, {}); }

} // namespace

void LookForMp3Folder() {
    gLook = std::make_shared<Look>();
    platform::Aside([look = gLook, remembered = Remembered(), music = platform::MusicFolder(),
                        samples = platform::ProgramFolder() / "Music",
                        root = platform::RootFolder()](const std::stop_token&) {
        std::error_code error;
        fs::path found = !remembered.empty() ? remembered : HoldsSongs(music) ? music : samples;
        if (!fs::is_directory(found, error))
            found = root;
        const std::lock_guard lock(look->mutex);
        look->found = found;
    });
}

fs::path LastMp3Folder() {
    if (gLook) {
        const std::lock_guard lock(gLook->mutex);
        if (!gLook->found.empty())
            return gLook->found;
    }
    const fs::path remembered = Remembered();
    return remembered.empty() ? platform::MusicFolder() : remembered;
}

void SetLastMp3Folder(const fs::path& folder) {
    gLook.reset(); // it knows of another one
    platform::WritePathSetting(kApplication, kDirs, kMp3Dir, folder);
}

fs::path PlaylistFolder() { return platform::ProgramFolder() / "PlayList"; }

} // namespace library
