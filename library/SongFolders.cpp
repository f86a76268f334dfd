#include "library/SongFolders.h"

#include "library/SongScan.h"
#include "platform/Answer.h"
#include "platform/ProgramFolder.h"
#include "platform/Settings.h"

#include <memory>

namespace library {

namespace fs = std::filesystem;

namespace {

const QString kApplication = QStringLiteral("Songrush");
const QString kDirs = QStringLiteral("Dirs");
const QString kMp3Dir = QStringLiteral("Mp3Dir");
const QString kLastList = QStringLiteral("LastList");

std::unique_ptr<platform::Answer<fs::path>> gLook;

fs::path Remembered() { return platform::ReadPathSetting(kApplication, kDirs, kMp3Dir, {}); }

} // namespace

void LookForMp3Folder() {
    gLook = std::make_unique<platform::Answer<fs::path>>(
        [remembered = Remembered(), music = platform::MusicFolder(),
         samples = platform::ProgramFolder() / "Music",
         root = platform::RootFolder()](const std::stop_token& stop) {
            std::error_code error;
            const fs::path wished = !remembered.empty()       ? remembered
                                    : HoldsSongs(music, stop) ? music
                                                              : samples;
            return fs::is_directory(wished, error) ? wished : root;
        });
}

fs::path LastMp3Folder() {
    if (const auto found = gLook ? gLook->Get() : std::nullopt)
        return *found;
    const fs::path remembered = Remembered();
    return remembered.empty() ? platform::MusicFolder() : remembered;
}

void SetLastMp3Folder(const fs::path& folder) {
    gLook.reset(); // it is about another folder
    platform::WritePathSetting(kApplication, kDirs, kMp3Dir, folder);
}

fs::path LastList() { return platform::ReadPathSetting(kApplication, kDirs, kLastList, {}); }

void SetLastList(const fs::path& list) {
    platform::WritePathSetting(kApplication, kDirs, kLastList, list);
}

fs::path PlaylistFolder() { return platform::ProgramFolder() / "PlayList"; }

} // namespace library
