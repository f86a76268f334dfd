#include "library/SongFolders.h"

#include "library/SongScan.h"
#include "platform/ProgramFolder.h"
#include "platform/Settings.h"

namespace library {

namespace fs = std::filesystem;

namespace {

const QString kApplication = QStringLiteral("Songrush");
const QString kDirs = QStringLiteral("Dirs");
const QString kMp3Dir = QStringLiteral("Mp3Dir");

fs::path FirstMp3Folder() {
    const fs::path music = platform::MusicFolder();
    return SeemsToHoldSongs(music) ? music : platform::ProgramFolder() / "Music";
}

} // namespace

fs::path LastMp3Folder() {
    fs::path folder = platform::ReadPathSetting(kApplication, kDirs, kMp3Dir, {});
    if (folder.empty())
        folder = FirstMp3Folder();
    std::error_code error;
    return fs::is_directory(folder, error) ? folder : platform::RootFolder();
}

void SetLastMp3Folder(const fs::path& folder) {
    platform::WritePathSetting(kApplication, kDirs, kMp3Dir, folder);
}

fs::path PlaylistFolder() { return platform::ProgramFolder() / "PlayList"; }

} // namespace library
