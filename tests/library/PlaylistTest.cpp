#include "library/c_M3U.h"
#include "platform/Time.h"
#include "tests/FileSizeLimit.h"
#include "tests/TemporaryFolder.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Songs = std::vector<std::string>;

struct PlaylistTest : testing::Test {
    TemporaryFolder mFolder;
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

std::set<std::string> AsSet(const Songs& songs) { return {songs.begin(), songs.end()}; }

TEST_F(PlaylistTest, EveryKindOfLineIsReadAndWrittenBack) {
    const struct {
        std::string read;
        std::string written; // after the header, by a list that has read it
    } cases[] = {
        {"#EXTM3U\r\n#Songrush:1\r\n/a b\r\n#Songrush:0\r\n/c\r\n",
         "#Songrush:1\r\n/a b\r\n#Songrush:0\r\n/c\r\n"},
        {"ab\r\ncd", "#Songrush:0\r\nab\r\n#Songrush:0\r\ncd\r\n"},
        {"#Songrush:1\r\n#EXTINF:1,x\r\nx\r\n\r\n   \r\nab\r\n", "#Songrush:1\r\nab\r\n"},
        {"  ab\t \r\n", "#Songrush:0\r\nab\t\r\n"},
        {"#Songrush:1\r\n#Songrush:0\r\nab\r\n#Songrush:1\r\n", "#Songrush:0\r\nab\r\n"},
        {"ab\ncd\n", "#Songrush:0\r\nab\ncd\n\r\n"},
        {"#Songrush: 7x\r\naa\r\n#Songrush:-3\r\nbb\r\n",
         "#Songrush:7\r\naa\r\n#Songrush:-3\r\nbb\r\n"},
        {"#Songrush:2.5\r\naa\r\n#Songrush:+.6\r\nbb\r\n",
         "#Songrush:2\r\naa\r\n#Songrush:1\r\nbb\r\n"},
        {"#Songrush:x1\r\naa\r\n#Songrush:99999\r\nbb\r\n",
         "#Songrush:0\r\naa\r\n#Songrush:32767\r\nbb\r\n"},
        {"#       #Songrush:1\r\nab\r\n", "#Songrush:0\r\nab\r\n"},
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
    const Songs songs = {"/music/a.mp3", "x",           "#",        "#Songrush:1", " /a ",
                         "a ",           "/a\r\n/b",    "/a\r\n",   "\r\n/a",      "/a\r",
                         "\n/a",         "/\xFF\xC3 ?", "#a\r\n#b", "  ",          "/a/\t"};
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
    for (int run = 0; run < 5; ++run) {
        c_M3U list;
        list.ReadFile(file);
        list.RandomizeList();
        played.merge(AsSet(Next(list, 5)));
    }
    EXPECT_EQ(played.size(), 30u);
    c_M3U list;
    list.ReadFile(file);
    list.RandomizeList();
    EXPECT_EQ(AsSet(Next(list, 30)), played) << "the next cycle";
    list.ClearAllPlayed();
    list.RandomizeList();
    std::set<std::string> half = AsSet(Next(list, 15));
    list.RandomizeList();
    half.merge(AsSet(Next(list, 15)));
    EXPECT_EQ(half, played) << "a new order in the middle of a cycle";
}

TEST_F(PlaylistTest, AnEmptyListWritesNothingAndAMissingFileIsCreatedEmpty) {
    const fs::path comments = mFolder.Write("comments.m3u", "#EXTM3U\r\n#x\r\n");
    EXPECT_EQ(SongsIn(comments), Songs());
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

TEST_F(PlaylistTest, AFailedWriteIsToldAndLeavesTheOldFile) {
    QString told;
    QTimer::singleShot(0, [&told] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        told = box->text();
        box->accept();
    });
    const fs::path file = mFolder.Write("list.m3u", "old");
    {
        c_M3U list;
        list.Add(std::string(100, 'x'));
        const FileSizeLimit limit(50);
        list.WriteFile(file);
    }
    EXPECT_EQ(told.toStdString(),
              "Error Writing Playlist file:" + file.string() + ":\nFile too large");
    EXPECT_EQ(BytesOf(file), "old");
    EXPECT_EQ(mFolder.Entries(), 1);
}

} // namespace
