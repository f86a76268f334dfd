#include "platform/Settings.h"
#include "editor/ColumnSettings.h"
#include "game/LastNames.h"
#include "library/SongFolders.h"
#include "platform/Volume.h"
#include "tests/TemporaryFolder.h"
#include "tests/fuzz/Target.h"
#include "toolkit/Form.h"
#include "toolkit/PictureBox.h"
#include "toolkit/StageSize.h"
#include "toolkit/c_PicList.h"

#include <chrono>
#include <numeric>

namespace {

namespace fs = std::filesystem;

fs::path Store() { return fs::path(getenv("XDG_CONFIG_HOME")) / "Songrush/Songrush.conf"; }

/// Makes `bytes` what the program has remembered.
void Remember(const std::string& bytes) {
    const fs::path file = Store();
    static fs::file_time_type time = fs::file_time_type::clock::now();
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    fs::last_write_time(file, time += std::chrono::seconds(1)); // which is how Qt sees a change
}

void TryPlace() {
    const QRect screen(0, 30, 1920, 1050);
    const auto last = toolkit::PlaceFromText(platform::ReadSetting(
        QStringLiteral("Songrush"), QStringLiteral("Window"), QStringLiteral("Place"), {}));
    EXPECT_TRUE(screen.contains(toolkit::StartPlace(last, {screen})));
}

void TryColumns() {
    toolkit::Form form(QStringLiteral("f_Test"));
    toolkit::PictureBox box(&form, QStringLiteral("pTest"), QSize(360, 240));
    c_PicList list;
    list.Create(&box, QStringLiteral("Title\\Artist"));
    const std::vector<int> before = list.ColumnWidths();
    editor::RememberColumns(list);
    const std::vector<int> widths = list.ColumnWidths();
    EXPECT_EQ(std::accumulate(widths.begin(), widths.end(), 0),
              std::accumulate(before.begin(), before.end(), 0));
    EXPECT_GT(*std::min_element(widths.begin(), widths.end()), 0);
}

void Run(const std::string& bytes) {
    Remember(bytes);
    platform::Volume& volume = platform::Volume::Get();
    volume.Recall();
    EXPECT_TRUE(volume.Percent() >= 0 && volume.Percent() <= 100);
    TryPlace();
    TryColumns();
    EXPECT_FALSE(library::LastMp3Folder().empty());
    const fs::path list = bytes.substr(0, bytes.find('\0'));
    library::SetLastList(list);
    game::RememberName(QStringLiteral("Ann"));
    // A file with values that Qt does not understand is left alone.
    if (BytesOf(Store()) != bytes) {
        EXPECT_EQ(library::LastList(), list);
        EXPECT_EQ(game::LastNames().front(), QStringLiteral("Ann"));
    }
}

const fuzz::Target kSettings("settings", Run);

} // namespace
