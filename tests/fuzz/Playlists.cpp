#include "library/AnyList.h"
#include "library/c_M3U.h"
#include "tests/TemporaryFolder.h"
#include "tests/fuzz/Target.h"

namespace {

namespace fs = std::filesystem;

/// The program's own file of a list holds the same list.
void ExpectKept(const c_M3U& list, const fs::path& file) {
    fs::remove(file);
    ASSERT_TRUE(list.WriteFile(file));
    c_M3U again;
    const library::ListRead read = library::ReadAnyList(file, again);
    EXPECT_FALSE(read.error || read.foreign);
    for (int i = 0; i < list.Count(); ++i)
        EXPECT_EQ(again.FileName(i), list.FileName(i));
    EXPECT_EQ(again.Marks(), list.Marks());
}

void Run(const std::string& bytes) {
    static const TemporaryFolder folder;
    static const fs::path song = folder.Write("Folder/Song.mp3", "");
    for (const char* name : {"List.m3u", "List.m3u8", "List.pls"}) {
        const fs::path file = folder.Write(name, bytes);
        c_M3U list;
        const library::ListRead read = library::ReadAnyList(file, list);
        if (read.error) {
            EXPECT_EQ(list.Count(), 0);
            continue;
        }
        for (int i = 0; i < list.Count(); ++i)
            EXPECT_FALSE(list.FileName(i).empty());
        ExpectKept(list, folder.Path() / "Own.m3u");
        std::vector<std::int16_t> marks = list.Marks();
        for (std::size_t i = 0; i < marks.size(); i += 2)
            marks[i] = static_cast<std::int16_t>(i * 7919);
        list.SetMarks(marks);
        ExpectKept(list, folder.Path() / "Own.m3u");
        list.RandomizeList();
        EXPECT_EQ(list.TakeUnplayed() < 0, list.Count() == 0);
        EXPECT_TRUE(read.foreign || list.WriteBack());
    }
}

const fuzz::Target kPlaylists("playlists", Run);

} // namespace
