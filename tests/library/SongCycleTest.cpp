#include "library/SongCycle.h"

#include "platform/Chance.h"
#include "platform/ProgramFolder.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <set>
#include <stop_token>
#include <thread>
#include <tuple>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using library::SongCycle;

class SongCycleTest : public testing::Test {
protected:
    SongCycleTest() { EnterProgramFolder(mFolder.Path() / "0"); }
    ~SongCycleTest() override { platform::SetProgramFolder({}); }

    void EnterProgramFolder(const fs::path& folder) {
        platform::SetProgramFolder(folder);
        mList = folder / "PlayList/list.m3u";
    }

    /// A playlist file of songs named by letters, each with its mark: "a0 b1".
    static std::string Text(const std::string& songs) {
        std::string text = "#EXTM3U\r\n";
        for (std::size_t i = 0; i < songs.size(); i += 3)
            text += "#Songrush:"s + songs[i + 1] + "\r\n/" + songs[i] + "\r\n";
        return text;
    }
    void List(const std::string& songs) const { mFolder.Write(mList, Text(songs)); }

    /// How many songs the journal has.
    std::size_t Journal() const { return library::MarkJournal(mList).Read().played.size(); }

    /// Begins the list and takes `count` songs, of which those in `dead` cannot be played. Does
    /// `last` before the list goes. The letters of the songs.
    std::string Play(
        int count, const std::string& dead = {}, const std::function<void()>& last = [] {}) {
        SongCycle cycle(mList);
        cycle.Begin();
        std::string played;
        while (static_cast<int>(played.size()) < count) {
            const std::vector<fs::path> songs = cycle.Upcoming(2);
            if (songs.empty())
                break;
            const auto good = std::ranges::find_if(songs, [&](const fs::path& song) {
                ++mTries;
                return dead.find(song.string()[1]) == dead.npos;
            });
            cycle.PassOver(static_cast<std::size_t>(good - songs.begin()));
            if (good != songs.end())
                played += cycle.Take().string()[1];
        }
        last();
        return played;
    }

    const TemporaryFolder mFolder;
    fs::path mList;
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
        {"a1 b0 c0 d0", "bcd", 1, 1, 4, "a1 b0 c0 d0"},  // in a new cycle
        {"a0 b0 c0 d0", "bcd", 6, 6, 9, "a1 b0 c0 d0"},  // the one song again and again
        {"a1 b1 c0 d0", "abcd", 3, 0, 4, "a1 b1 c0 d0"}, // each tried only once
        {"a1 b1 c1 d1", "bcd", 1, 1, 4, "a1 b0 c0 d0"},  // which come first
        {"a3 b1 c0", "", 1, 1, 1, "a3 b1 c1"},
    };
    const auto chance = platform::ReplaceRandom([] { return 0.0; });
    for (const auto& c : cases) {
        List(c.list);
        mTries = 0;
        EXPECT_EQ(Play(c.wanted, c.dead).size(), c.played) << c.list;
        EXPECT_EQ(mTries, c.tries) << c.list;
        EXPECT_EQ(BytesOf(mList), Text(c.after)) << c.list;
    }
    platform::ReplaceRandom(chance);
}

TEST_F(SongCycleTest, SongsWhoseDiskIsBackCompleteTheCycle) {
    List("a0 b1 c0 d0");
    {
        SongCycle cycle(mList);
        cycle.Begin();
        cycle.Upcoming(1);
        std::set<fs::path> played = {"/b", cycle.Take()};
        for (std::size_t failed = 1; failed > 0; cycle.PassOver(failed))
            failed = cycle.Upcoming(4).size();
        cycle.TryAgain();
        EXPECT_EQ(cycle.Upcoming(4).size(), 2u);
        for (int i = 0; i < 2; ++i)
            EXPECT_TRUE(played.insert(cycle.Take()).second) << "before all were played";
    }
    EXPECT_EQ(BytesOf(mList), Text("a1 b1 c1 d1"));
}

TEST_F(SongCycleTest, AnotherProgramsListIsNeverWrittenAndItsSongsComeBackWhenAllWerePlayed) {
    const std::string list = "#EXTINF:1,x\n/a\n/b\n/c\n";
    mFolder.Write(mList, list);
    EXPECT_EQ(Play(2, "abc"), "");
    std::string played = Play(2);
    EXPECT_EQ(BytesOf(mList), list);
    mFolder.Write(mList, list + "/d\n"); // one that comes in
    played += Play(2);
    std::sort(played.begin(), played.end());
    EXPECT_EQ(played, "abcd");
    const std::string goes = Play(1);            // of a new cycle
    mFolder.Write(mList, "/x\n/" + goes + "\n"); // the others have gone
    EXPECT_EQ(Play(1), "x");
}

TEST_F(SongCycleTest, AFileThatOthersReplacedStaysAndGetsTheMarksTheNextTime) {
    List("a0 b0 c0");
    Play(1, "ac", [this] { List("d0 b0 e0"); });
    EXPECT_EQ(BytesOf(mList), Text("d0 b0 e0"));
    const std::string played = Play(2);
    EXPECT_TRUE(played == "de" || played == "ed") << played;
    EXPECT_EQ(BytesOf(mList), Text("d1 b1 e1"));
    EXPECT_EQ(Journal(), 0u);
}

TEST_F(SongCycleTest, MarksSurviveAKillAndMoveWithTheProgram) {
    const std::tuple<const char*, int, int> cases[] = {
        {"a0 b1 c0 d0", 2, 1}, {"a1 b0 c1 d1", 3, 2}}; // which begins a new cycle
    for (const auto& [list, played, unplayed] : cases) {
        List(list);
        const fs::path moved = mFolder.Path() / list; // with the files at the moment of the kill
        Play(played, {}, [this, &moved] {
            while (Journal() < 2)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            fs::copy(platform::ProgramFolder(), moved, fs::copy_options::recursive);
        });
        EnterProgramFolder(moved);
        EXPECT_EQ(BytesOf(mList), Text(list));
        EXPECT_EQ(SongCycle(mList).Unplayed(), unplayed); // a mere look loses nothing
        EXPECT_EQ(Play(1).size(), 1u);
        EXPECT_EQ(SongCycle(mList).Unplayed(), unplayed - 1);
        EXPECT_EQ(Journal(), 0u);
    }
}

TEST_F(SongCycleTest, TheNextGameOfAListWaitsUntilTheMarksOfTheLastAreSaved) {
    List("a0 b0 c0");
    std::string next;
    std::thread game;
    const std::string last = Play(1, {}, [&] {
        std::stop_source gaveUp;
        gaveUp.request_stop();
        EXPECT_EQ(SongCycle(mList, gaveUp.get_token()).Count(), 0);
        game = std::thread([&] { next = Play(1); });
        std::this_thread::sleep_for(std::chrono::milliseconds(50)); // in which it could play
        EXPECT_EQ(next, "");
    });
    game.join();
    EXPECT_NE(next, last);
    EXPECT_EQ(SongCycle(mList).Unplayed(), 1);
}

TEST_F(SongCycleTest, AListWrittenAnewBeginsWithoutTheMarksOfOldGames) {
    List("a0 b0");
    library::MarkJournal(mList).Played("/a");
    EXPECT_EQ(SongCycle(mList).Unplayed(), 1);
    library::MarkJournal::Forget(mList);
    EXPECT_EQ(SongCycle(mList).Unplayed(), 2);
}

} // namespace
