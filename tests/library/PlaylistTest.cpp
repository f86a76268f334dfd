#include "library/c_M3U.h"
#include "platform/Time.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <string>

namespace {

namespace fs = std::filesystem;

struct PlaylistTest : testing::Test {
    const TemporaryFolder mFolder;
};

TEST_F(PlaylistTest, EveryKindOfLineIsReadAndWrittenBack) {
    const struct {
        std::string read;
        std::string written; // after the header, by a list that has read it
    } cases[] = {
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
        const fs::path file = mFolder.Write("list.m3u", read);
        c_M3U list;
        list.ReadFile(file);
        list.WriteFile(file);
        EXPECT_EQ(BytesOf(file), "#EXTM3U\r\n" + written) << read;
    }
}

TEST_F(PlaylistTest, EveryPathComesBackByteForByte) {
    const std::string songs[] = {"x",        "#",    "#Songrush:1", " /a ", "/a\r\n/b",
                                 "/a\r\n",   "/a\r", "\r\n/a",      "\n/a", "/\xFF\xC3 ?",
                                 "#a\r\n#b", "  ",   "/a/\t"};
    c_M3U list;
    for (const std::string& song : songs)
        list.Add(song);
    const fs::path file = mFolder.Path() / "list.m3u";
    list.WriteFile(file);
    list.ReadFile(file);
    ASSERT_EQ(list.Count(), std::ssize(songs));
    for (int i = 0; i < list.Count(); ++i)
        EXPECT_EQ(list.FileName(i), songs[i]);
}

TEST_F(PlaylistTest, TheClockDecidesTheOrderOfEachCycleWhichGoesOnInTheNextRun) {
    double clock = 1000;
    const auto old = platform::ReplaceTimeSource({[&clock] { return clock++; }, {}});
    const fs::path file =
        mFolder.Write("list.m3u", "#Songrush:2\r\nxx\r\n11\r\n22\r\n33\r\n44\r\n55\r\n66\r\n");
    const auto play = [&](int songs) {
        c_M3U list;
        list.ReadFile(file);
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
    const fs::path comments = mFolder.Write("comments.m3u", "#EXTM3U\r\n#x\r\n");
    c_M3U list;
    list.WriteFile(comments);
    EXPECT_EQ(BytesOf(comments), "#EXTM3U\r\n#x\r\n");
    list.ReadFile(mFolder.Path() / "new.m3u");
    EXPECT_EQ(BytesOf(mFolder.Path() / "new.m3u"), "");
    EXPECT_EQ(list.NextUnplayed(), "");
    list.Add("/a");
    EXPECT_EQ(list.FileName(-1), "");
    EXPECT_EQ(list.FileName(1), "");
    list.ReadFile(mFolder.Path());
    EXPECT_EQ(list.Count(), 0) << "a folder cannot be read";
}

} // namespace
