#include "game/NextQuestion.h"

#include "audio/c_XAudio.h"
#include "library/SongCycle.h"
#include "library/c_M3U.h"
#include "platform/Chance.h"
#include "tests/HeldReads.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"
#include "tests/audio/ToneFile.h"

#include <QTest>
#include <chrono>
#include <optional>
#include <set>
#include <utility>

namespace {

namespace fs = std::filesystem;
using State = game::NextQuestion::State;
using namespace std::chrono_literals;

struct NextQuestionTest : testing::Test {
    fs::path List(int songs, int dead) {
        auto paths = mFolder.MakeSongs(songs);
        paths.insert(paths.begin(), static_cast<std::size_t>(dead), mFolder.Path() / "gone.mp3");
        if (dead > 0)
            std::ofstream(paths[0] = mFolder.Path() / "short.mp3") << tonefile::Encode(4.5);
        return mFolder.MakePlaylist(paths);
    }

    /// Its state once it has stopped working. Time passes when a read is held back.
    State Comes(game::NextQuestion& next) {
        next.Prepare();
        EXPECT_TRUE(QTest::qWaitFor([&] {
            const int waiting = mHeld ? mHeld->Waiting() : 0;
            if (waiting > std::exchange(mWaiting, waiting))
                PassLongTime();
            return next.Advance() != State::Working;
        }));
        return next.Advance();
    }

    using Time = std::chrono::steady_clock::time_point;
    static Time Now() { return sNow; }
    static void PassLongTime() { sNow += 11s; }
    inline static Time sNow;

    SongFolder mFolder;
    std::optional<HeldReads> mHeld;
    int mWaiting = 0;
};

TEST_F(NextQuestionTest, IsOfEachSongOnceAndPassesOverThoseThatAreGone) {
    library::SongCycle songs(List(5, 600));
    songs.Begin();
    game::NextQuestion next(songs, Now);
    std::set<fs::path> asked;
    for (int i = 0; i < 5; ++i) {
        ASSERT_EQ(Comes(next), State::Ready);
        PassLongTime();
        EXPECT_EQ(next.Advance(), State::Ready) << "it is not drawn anew without titles";
        EXPECT_EQ(songs.Unplayed(), 605 - i) << "marked before it is asked";
        const game::Question question = next.Take();
        EXPECT_TRUE(asked.insert(question.song).second);
        EXPECT_EQ(question.Title(), SongFolder::OpenTitle());
        EXPECT_EQ(std::set(question.titles.begin(), question.titles.end()).size(), 4u);
    }
    ASSERT_EQ(Comes(next), State::Ready);
    EXPECT_TRUE(asked.contains(next.Take().song)) << "no new cycle";
    EXPECT_EQ(songs.Unplayed(), 604);
    fs::remove_all(mFolder.Path() / "Music");
    EXPECT_EQ(Comes(next), State::NoSongLeft);
}

TEST_F(NextQuestionTest, DoesWithoutWhatDoesNotCome) {
    library::SongCycle songs(List(4, 0));
    songs.Begin();
    mHeld.emplace("song2.mp3");
    std::set<fs::path> asked;
    game::NextQuestion next(songs, Now);
    for (int i = 0; i < 4; ++i) { // one of them comes upon that song
        ASSERT_EQ(Comes(next), State::Ready);
        const game::Question question = next.Take();
        EXPECT_EQ(question.Title().toStdString() + ".mp3", question.song.filename());
        asked.insert(question.song.filename());
    }
    EXPECT_EQ(asked, std::set<fs::path>({"song1.mp3", "song3.mp3", "song4.mp3"}));
}

TEST_F(NextQuestionTest, BeginsSomewhereInALongSong) {
    const auto before = platform::ReplaceRandom([] { return 0.5; });
    const fs::path song = mFolder.Path() / "long.mp3";
    std::ofstream(song, std::ios::binary) << tonefile::Encode(35);
    library::SongCycle songs(mFolder.MakePlaylist({song}));
    songs.Begin();
    game::NextQuestion next(songs);
    ASSERT_EQ(Comes(next), State::Ready);
    next.Take();
    EXPECT_NEAR(Audio().Position(), 5, 0.1) << "25 s are left from there on";
    platform::ReplaceRandom(before);
}

} // namespace
