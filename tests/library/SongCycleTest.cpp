#include "library/SongCycle.h"

#include "platform/ProgramFolder.h"
#include "tests/TemporaryFolder.h"

#include <chrono>
#include <csignal>
#include <set>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
using library::SongCycle;
using Attempt = SongCycle::Attempt;
using Songs = std::set<std::string>;

class SongCycleTest : public testing::Test {
protected:
    SongCycleTest() {
        fs::create_directory(mFolder.Path() / "PlayList");
        platform::SetProgramFolder(mFolder.Path());
    }
    ~SongCycleTest() override { platform::SetProgramFolder({}); }

    /// A list of songs named by letters, each with its mark: "a0 b1".
    fs::path List(const std::string& songs) const {
        std::string text = "#EXTM3U\r\n";
        for (std::size_t i = 0; i < songs.size(); i += 3)
            text += std::string("#Songrush:") + songs[i + 1] + "\r\n/" + songs[i] + "\r\n";
        return mFolder.Write("PlayList/list.m3u", text);
    }

    /// The marks in the file, as `List` takes them.
    std::string InFile() const {
        c_M3U list;
        list.ReadFile(mList);
        std::string songs;
        for (int i = 0; i < list.Count(); ++i)
            songs += list.FileName(i).string().substr(1) +
                     std::to_string(list.Marks()[static_cast<std::size_t>(i)]) + ' ';
        return songs.substr(0, songs.size() - 1);
    }

    /// Begins the list and takes `count` songs, of which those in `dead` cannot be opened.
    std::vector<std::string> Play(int count, const std::string& dead = {}) {
        SongCycle cycle(mList);
        cycle.Begin();
        std::vector<std::string> played;
        for (int i = 0; i < count; ++i)
            if (const auto song = cycle.Next([&](const fs::path& path) {
                    ++mTries;
                    const char name = path.string().at(1);
                    return dead.find(name) != std::string::npos ? Attempt::Failed : Attempt::Opened;
                }))
                played.push_back(song->string().substr(1));
        return played;
    }

    const TemporaryFolder mFolder;
    const fs::path mList = mFolder.Path() / "PlayList/list.m3u";
    int mTries = 0;
};

TEST_F(SongCycleTest, SongsThatCannotBeOpenedArePassedOverAndKeepTheirMarks) {
    const struct {
        const char* list;
        const char* dead;
        int wanted;
        std::size_t played;
        int tries;
        const char* after;
    } cases[] = {
        {"a0 b0", "", 2, 2, 2, "a1 b1"},
        {"a1 b0 c0 d0", "bcd", 1, 1, 4, "a1 b0 c0 d0"}, // in a new cycle
        {"a0 b0 c0 d0", "bcd", 6, 6, 9, "a1 b0 c0 d0"}, // the one song again and again
        {"a1 b1 c0 d0", "abcd", 1, 0, 4, "a1 b1 c0 d0"},
        {"a1 b1 c0 d0", "abcd", 3, 0, 4, "a1 b1 c0 d0"}, // each tried only once
        {"a3 b1 c0", "", 1, 1, 1, "a3 b1 c1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.list) + " without " + c.dead);
        List(c.list);
        mTries = 0;
        EXPECT_EQ(Play(c.wanted, c.dead).size(), c.played);
        EXPECT_EQ(mTries, c.tries);
        EXPECT_EQ(InFile(), c.after);
    }
}

TEST_F(SongCycleTest, NothingIsMarkedWhenTheSearchIsGivenUp) {
    List("a1 b0 c0");
    {
        SongCycle cycle(mList);
        cycle.Begin();
        int tries = 0;
        EXPECT_FALSE(cycle.Next([&tries](const fs::path&) {
            return ++tries == 3 ? Attempt::GivenUp : Attempt::Failed;
        }));
        EXPECT_EQ(tries, 3) << "the third belongs to a new cycle";
    }
    EXPECT_EQ(InFile(), "a1 b0 c0");
}

TEST_F(SongCycleTest, AFileIsOnlyWrittenWithNewMarks) {
    const std::string foreign = "#EXTM3U\r\n#EXTINF:1,x\r\n/a\r\n/b\r\n";
    mFolder.Write("PlayList/list.m3u", foreign);
    EXPECT_EQ(SongCycle(mList).Count(), 2);
    EXPECT_EQ(BytesOf(mList), foreign);
    EXPECT_TRUE(Play(2, "ab").empty());
    EXPECT_EQ(BytesOf(mList), foreign);
}

TEST_F(SongCycleTest, AFileThatOthersReplacedStaysAndGetsTheMarksTheNextTime) {
    List("a0 b0 c0");
    {
        SongCycle cycle(mList);
        cycle.Begin();
        cycle.Next(
            [](const fs::path& song) { return song == "/b" ? Attempt::Opened : Attempt::Failed; });
        List("d0 b0 e0");
    }
    EXPECT_EQ(InFile(), "d0 b0 e0");
    const auto played = Play(2);
    EXPECT_EQ(Songs(played.begin(), played.end()), Songs({"d", "e"}));
    EXPECT_EQ(InFile(), "d1 b1 e1");
    EXPECT_EQ(std::distance(fs::directory_iterator(mList.parent_path()), {}), 1);
}

TEST_F(SongCycleTest, MarksSurviveAKill) {
    const auto written = [this] {
        std::size_t bytes = 0;
        for (const auto& entry : fs::directory_iterator(mList.parent_path()))
            bytes += entry.path() != mList ? entry.file_size() : 0;
        return bytes;
    };
    const struct {
        const char* list;
        std::size_t played;  // before the kill
        std::size_t journal; // bytes
    } cases[] = {{"a0 b1 c0 d0", 2, 34}, {"a1 b0 c1 d1", 3, 46}};
    for (const auto& c : cases) {
        List(c.list);
        const pid_t process = fork();
        if (process == 0) {
            alarm(60);
            SongCycle cycle(mList);
            cycle.Begin();
            for (std::size_t i = 0; i < c.played; ++i)
                cycle.Next([](const fs::path&) { return Attempt::Opened; });
            while (written() < c.journal)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            raise(SIGKILL);
        }
        waitpid(process, nullptr, 0);
        EXPECT_EQ(InFile(), c.list);
        EXPECT_EQ(SongCycle(mList).Count(), 4); // a list that is only looked at loses nothing
        EXPECT_EQ(Play(1).size(), 1u);
        // Two songs of the cycle are left to play, or just one more than was played.
        const std::string after = InFile();
        EXPECT_EQ(std::count(after.begin(), after.end(), '1'), c.played == 2 ? 4 : 3) << after;
        EXPECT_EQ(written(), 0u);
    }
}

TEST_F(SongCycleTest, AListWrittenAnewBeginsWithoutTheMarksOfOldGames) {
    List("a0 b0");
    library::MarkJournal(mList).Played("/a");
    library::MarkJournal::Forget(mList);
    EXPECT_EQ(Play(2).size(), 2u);
    EXPECT_EQ(InFile(), "a1 b1");
}

TEST_F(SongCycleTest, WhatIsNoTextHasNoSongsAndIsNeverWritten) {
    for (const std::string& bytes :
         {std::string("ID3\x04\0\0/a\r\n/b\r\n", 15), std::string("\x7F"
                                                                  "ELF\x02\r\n/a\r\n")}) {
        mFolder.Write("PlayList/list.m3u", bytes);
        {
            const SongCycle cycle(mList);
            EXPECT_EQ(cycle.Error(), std::errc::illegal_byte_sequence);
            EXPECT_EQ(cycle.Count(), 0);
        }
        EXPECT_EQ(BytesOf(mList), bytes);
    }
}

} // namespace
