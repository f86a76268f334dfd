#include "library/c_M3U.h"
#include "platform/Time.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Songs = std::vector<std::string>;

struct PlaylistTest : testing::Test {
    const TemporaryFolder mFolder;
};

Songs SongsIn(const fs::path& file) {
    c_M3U list;
    list.ReadFile(file);
    Songs songs;
    for (int i = 0; i < list.Count(); ++i)
        songs.push_back(list.FileName(i).string());
    return songs;
}

Songs Next(c_M3U& list, int count) {
    Songs songs;
    for (int i = 0; i < count; ++i)
        songs.push_back(list.NextUnplayed().string());
    return songs;
}

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
    const Songs songs = {"x",    "#",    "#Songrush:1", " /a ",     "/a\r\n/b", "/a\r\n", "\r\n/a",
                         "/a\r", "\n/a", "/\xFF\xC3 ?", "#a\r\n#b", "  ",       "/a/\t"};
    c_M3U list;
    for (const std::string& song : songs)
        list.Add(song);
    const fs::path file = mFolder.Path() / "list.m3u";
    list.WriteFile(file);
    EXPECT_EQ(SongsIn(file), songs);
}

TEST_F(PlaylistTest, TheClockDecidesTheOrder) {
    const auto orderAt = [](double seconds) {
        const auto old = platform::ReplaceTimeSource({[seconds] { return seconds; }, {}});
        c_M3U list;
        for (int song = 0; song < 50; ++song)
            list.Add(std::to_string(song));
        list.RandomizeList();
        platform::ReplaceTimeSource(old);
        return Next(list, 50);
    };
    EXPECT_EQ(orderAt(1000), orderAt(1000));
    EXPECT_NE(orderAt(1000), orderAt(1001));
}

TEST_F(PlaylistTest, NoSongComesBackBeforeAllWerePlayedAlsoAcrossRuns) {
    std::string bytes;
    for (int song = 10; song < 40; ++song)
        bytes += (song < 15 ? "#Songrush:2\r\n" : "") + std::to_string(song) + "\r\n";
    const fs::path file = mFolder.Write("list.m3u", bytes);
    std::set<std::string> played = {"10", "11", "12", "13", "14"};
    for (const int songs : {10, 15, 30}) { // the last ones are a cycle of their own
        c_M3U list;
        list.ReadFile(file);
        list.RandomizeList();
        const Songs next = Next(list, songs);
        const std::size_t before = songs < 30 ? played.size() : 0;
        played.insert(next.begin(), next.end());
        EXPECT_EQ(played.size(), before + next.size());
    }
}

TEST_F(PlaylistTest, AnEmptyListWritesNothingAndAMissingFileIsCreatedEmpty) {
    const fs::path comments = mFolder.Write("comments.m3u", "#EXTM3U\r\n#x\r\n");
    c_M3U().WriteFile(comments);
    EXPECT_EQ(BytesOf(comments), "#EXTM3U\r\n#x\r\n");
    EXPECT_EQ(SongsIn(mFolder.Path() / "new.m3u"), Songs());
    EXPECT_EQ(BytesOf(mFolder.Path() / "new.m3u"), "");
    c_M3U list;
    EXPECT_EQ(list.NextUnplayed(), "");
    list.Add("/a");
    EXPECT_EQ(list.FileName(-1), "");
    EXPECT_EQ(list.FileName(1), "");
    list.ReadFile(mFolder.Path());
    EXPECT_EQ(list.Count(), 0) << "a folder cannot be read";
}

} // namespace
