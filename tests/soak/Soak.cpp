// songrush_soak [games] [seed]: plays whole games of both kinds in a lapse of time, with players
// who bet, think and answer at random. Ends with 1 if a score is wrong, a song comes twice in a
// cycle, a message comes, or memory, threads or open files grow from game to game.

#include "audio/c_XAudio.h"
#include "game/Scoring.h"
#include "game/c_gBet.h"
#include "platform/Aside.h"
#include "platform/Motion.h"
#include "tests/Surroundings.h"
#include "tests/game/GameScene.h"

#include <cstdio>
#include <malloc.h>
#include <optional>
#include <random>
#include <set>

namespace {

namespace fs = std::filesystem;

/// What this process holds.
struct Held {
    long memory, threads, files; ///< memory in kB
};

Held LookAtProcess() {
    gAudio.reset(); // the threads of the sound device end with it
    EXPECT_TRUE(platform::AsidesEnd(std::chrono::seconds(20)));
    QTest::qWait(500); // they are still on their way out, and a picture may still fade
    malloc_trim(0);    // what was freed is not held
    const auto status = QString::fromStdString(BytesOf("/proc/self/status"));
    const auto entries = [](const char* folder) {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    };
    return {status.section("VmRSS:", 1).trimmed().section(' ', 0, 0).toLong(),
            entries("/proc/self/task"), entries("/proc/self/fd")};
}

class Soak : GameScene {
public:
    explicit Soak(unsigned seed) : mDice(seed) {
        StopTime();
        // Whatever moves or ticks takes time; some of it is seen all the same.
        platform::ReplaceMotionWish([asked = 0]() mutable { return ++asked % 8 != 0; });
        board.Timer1.setInterval(1);
        std::vector<fs::path> songs = mFolder.MakeSongs(kSongs);
        songs.insert(songs.begin() + 5, mFolder.Path() / "gone.mp3");
        mPlaylist = mFolder.MakePlaylist(songs);
    }

    void PlayGame() {
        const int players = 1 + Any(4);
        mScores.assign(static_cast<std::size_t>(players), 0);
        mBefore = mQuestions;
        const auto act = [this] { Act(); };
        OneIn(2) ? Play<c_gBet>(players, act) : Play<c_gMulti>(players, act);
        EXPECT_FALSE(mExit);
        EXPECT_EQ(mMessages, QStringList());
        EXPECT_EQ(mQuestions - mBefore, 6 * players);
        if (OneIn(10)) // or no score would be high enough any more
            fs::remove(mFolder.Path() / (OneIn(2) ? "H1.dat" : "H2.dat"));
    }
    int Questions() const { return mQuestions; }

private:
    static constexpr std::size_t kSongs = 17; // so few that cycles end within games

    int Any(int below) { return std::uniform_int_distribution(0, below - 1)(mDice); }
    bool OneIn(int cases) { return Any(cases) == 0; }

    void Act() {
        if (BetsNow())
            Bet();
        else if (Choice(true) != nullptr)
            mSeconds < 0 ? Think() : Answer();
        else if (board.pCont->isVisible() && mAnswered)
            CheckScore();
        else if (name.isVisible() && OneIn(3))
            ClickOn(name.cmdContinue); // without a name
        else
            GoOn();
    }

    void Bet() {
        if (mBet != 0)
            return;
        const int button = Any(4);
        mBet = game::BetFromButton(button + 1);
        ClickOn(board.ChoiceBoxes()[static_cast<std::size_t>(button)]);
    }

    /// Lets the clock run, perhaps until the clip is over, and may take the hint.
    void Think() {
        if (mAsked.size() == kSongs)
            mAsked.clear();
        const QString title = SongFolder::OpenTitle();
        EXPECT_TRUE(mAsked.insert(title).second) << title.toStdString() << " came twice";
        const int time = Any(mBet > 0 ? 2000 * mBet : 30000);
        const bool over = mBet > 0 && time >= 1000 * mBet;
        mNow += time;
        if (over)
            Audio().SeekTo(mBet + 0.05);
        mSeconds = static_cast<float>(over ? 1000 * mBet : time) / 1000.0F;
        mLimit = over ? f_Multi::kClipStopped : mBet;
        if (OneIn(4)) {
            ClickOn(board.pHint);
            Score() = game::ScoreAfterHint(Score());
        }
    }

    void Answer() {
        if (mAnswered || board.ElapsedTime() != mSeconds || board.TimeLimit() != mLimit)
            return; // the clock has not ticked yet
        mAnswered = true;
        const bool right = OneIn(2);
        if (right)
            Score() = game::AddPoints(Score(), mBet > 0 ? game::PointsForBet(mBet)
                                                        : game::PointsForTime(mSeconds));
        ClickOn(Choice(right));
    }

    void CheckScore() {
        EXPECT_TRUE(Says(QStringLiteral("SCORE: %1").arg(Score()))) << Score();
        ++mQuestions;
        mBet = 0;
        mSeconds = -1;
        mAnswered = false;
    }

    std::int32_t& Score() {
        return mScores[static_cast<std::size_t>(mQuestions - mBefore) % mScores.size()];
    }

    std::mt19937 mDice;
    std::set<QString> mAsked;          // in this cycle
    int mQuestions = 0;                // answered
    int mBefore = 0;                   // of them, in earlier games
    std::vector<std::int32_t> mScores; // of the players
    int mBet = 0;                      // seconds; 0 before a bet
    float mSeconds = -1;               // the clock is to show; -1 before
    int mLimit = 0;                    // of the clip, by then
    bool mAnswered = false;
};

} // namespace

int main(int argc, char* argv[]) {
    mallopt(M_ARENA_MAX, 1); // threads that have ended leave less behind
    const Surroundings surroundings(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const int games = arguments.value(1, "1000").toInt();
    const unsigned seed = arguments.size() > 2 ? arguments[2].toUInt() : std::random_device()();
    std::printf("seed %u\n games questions  RSS kB threads files\n", seed);
    Soak soak(seed);
    std::optional<Held> early;
    for (int game = 1; game <= games; ++game) {
        soak.PlayGame();
        if (game != 20 && game % 100 != 0 && game != games)
            continue;
        const Held held = LookAtProcess();
        std::printf("%6d %9d %7ld %7ld %5ld\n", game, soak.Questions(), held.memory, held.threads,
                    held.files);
        std::fflush(stdout);
        if (!early)
            early = held;
        if (game < games)
            continue;
        EXPECT_LE(held.memory, early->memory + std::max(4096L, early->memory / 20));
        EXPECT_LE(held.threads, early->threads);
        EXPECT_LE(held.files, early->files);
    }
    return testing::UnitTest::GetInstance()->Failed();
}
