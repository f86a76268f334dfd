#include "library/AnyList.h"
#include "platform/Time.h"
#include "tests/TemporaryFolder.h"
#include "tests/library/SongsOf.h"

#include <string>
#include <utility>

namespace {

namespace fs = std::filesystem;

struct PlaylistTest : testing::Test {
    const TemporaryFolder mFolder;
    const fs::path mFile = mFolder.Path() / "list.m3u";
};

TEST_F(PlaylistTest, EveryKindOfLineIsReadAndWrittenBack) {
    const std::pair<std::string, std::string> cases[] = {
        // without the header that is written
        {"#EXTM3U\r\n#Songrush:1\r\n/a b\r\n#Songrush:0\r\n/c\r\n",
         "#Songrush:1\r\n/a b\r\n#Songrush:0\r\n/c\r\n"},
        {"#Songrush:1\r\n#EXTINF:1,x\r\nx\r\n\r\n   \r\nab\r\n", "#Songrush:1\r\nab\r\n"},
        {"  ab\t \r\n", "#Songrush:0\r\nab\t\r\n"},
        {"#Songrush:1\r\n#Songrush:0\r\nab\r\n#Songrush:1\r\n", "#Songrush:0\r\nab\r\n"},
        {"ab\ncd\n", "#Songrush:0\r\nab\ncd\n\r\n"},
        {"#Songrush: 7x\r\naa\r\n#Songrush:2.5\r\nbb\r\n",
         "#Songrush:7\r\naa\r\n#Songrush:2\r\nbb\r\n"},
        {"#Songrush:99999\r\nbb\r\n", "#Songrush:32767\r\nbb\r\n"},
        {"#Songrush:1 bytes=6\r\n a\r\n#b\r\ncd\r\n",
         "#Songrush:1 bytes=6\r\n a\r\n#b\r\n#Songrush:0\r\ncd\r\n"},
        // measures that end inside a line, beyond the end, that are no number or too big
        {"#Songrush:1 bytes=2\r\n abc\r\n", "#Songrush:1\r\nabc\r\n"},
        {"#Songrush:1 bytes=99\r\n abc", "#Songrush:1\r\nabc\r\n"},
        {"#Songrush:1 bytes=3x\r\n ab\r\n", "#Songrush:1\r\nab\r\n"},
        {"#Songrush:1 bytes=99999999999999999999\r\nab\r\n", "#Songrush:1\r\nab\r\n"},
    };
    for (const auto& [read, written] : cases) {
        mFolder.Write(mFile, read);
        c_M3U list;
        list.ReadFile(mFile);
        list.WriteFile(mFile);
        EXPECT_EQ(BytesOf(mFile), "#EXTM3U\r\n" + written) << read;
    }
}

TEST_F(PlaylistTest, EveryPathComesBackByteForByte) {
    const std::vector<fs::path> songs = {
        "x",        "#",           " /a",    "/a ",      "#Songrush:1",
        "/a\r\n/b", "/a\r\n",      "\r\n/a", "/a\r",     "\n/a",
        "  ",       "/\xFF\xC3 ?", "/a/\t",  "#a\r\n#b", "like-an.address://a"};
    c_M3U list;
    for (const fs::path& song : songs)
        list.Add(song);
    list.WriteFile(mFile);
    c_M3U read;
    EXPECT_FALSE(library::ReadAnyList(mFile, read).foreign);
    EXPECT_EQ(SongsOf(read), songs);
}

TEST_F(PlaylistTest, TheClockDecidesTheOrderOfEachCycleWhichGoesOnInTheNextRun) {
    double clock = 1000;
    const auto old = platform::ReplaceTimeSource({[&clock] { return clock++; }, {}});
    mFolder.Write(mFile, "#Songrush:2\r\nxx\r\n11\r\n22\r\n33\r\n44\r\n55\r\n66\r\n");
    const auto play = [this](int songs) {
        c_M3U list;
        list.ReadFile(mFile);
        list.RandomizeList();
        std::string played;
        while (songs-- > 0)
            played += list.NextUnplayed().string() + ' ';
        return played;
    };
    EXPECT_EQ(play(4), "11 66 44 55 ");
    EXPECT_EQ(play(2 + 7), "22 33 44 22 55 66 11 xx 33 ");
    platform::ReplaceTimeSource(old);
}

TEST_F(PlaylistTest, AnEmptyListWritesNothingAndAMissingFileIsCreatedEmpty) {
    c_M3U list;
    list.ReadFile(mFile);
    EXPECT_EQ(BytesOf(mFile), "");
    EXPECT_EQ(list.NextUnplayed(), "");
    mFolder.Write(mFile, "#EXTM3U\r\n#x\r\n");
    list.WriteFile(mFile);
    EXPECT_EQ(BytesOf(mFile), "#EXTM3U\r\n#x\r\n");
    list.Add("/a");
    EXPECT_EQ(list.FileName(-1).string() + list.FileName(1).string(), "");
    list.ReadFile(mFolder.Path());
    EXPECT_EQ(list.Count(), 0) << "a folder cannot be read";
}

} // namespace
