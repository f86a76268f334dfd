#include "audio/c_XAudio.h"
#include "game/Evening.h"
#include "game/HighScoreTable.h"
#include "game/c_gBet.h"
#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "game/f_Multi.h"
#include "platform/Time.h"
#include "platform/Wait.h"
#include "tests/Fingers.h"
#include "tests/HeldReads.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"
#include "tests/game/FixedSource.h"
#include "toolkit/Style.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <optional>
#include <set>

namespace fs = std::filesystem;

namespace {

class GameTest : public testing::Test {
protected:
    ~GameTest() override {
        if (mRealTime.tickCount)
            platform::ReplaceTimeSource(mRealTime);
    }

    /// Stops the clock until a test moves it. The time of day then runs backwards, as it does at
    /// midnight.
    void StopTime() {
        mRealTime = platform::ReplaceTimeSource(
            {[this] { return -static_cast<double>(mNow); }, [this] { return mNow; }});
    }

    template <typename Game> std::unique_ptr<Game> NewGame(int players) {
        auto game = std::make_unique<Game>(
            mForms, [this] { return std::make_unique<FixedSource>(mPlaylist, mLeaves); });
        game->SetPlayers(players);
        return game;
    }

    /// The box of the right choice, or of a wrong one, among those still shown.
    toolkit::PictureBox* Choice(bool right) {
        for (toolkit::PictureBox* box : board.ChoiceBoxes())
            if (box->isVisible() && (box->accessibleName() == SongFolder::OpenTitle()) == right)
                return box;
        return nullptr;
    }

    /// Whether the board shows this text.
    bool Says(const QString& text) const {
        return std::ranges::any_of(board.findChildren<QLabel*>(), [&text](const QLabel* label) {
            return !label->isHidden() && label->text() == text;
        });
    }

    bool BetsNow() const {
        return board.PChoice1->accessibleName() == QStringLiteral("1 Second, 140,000 Points");
    }

    /// Does what leads from question to question: starts the clip, goes on after an answer, types a
    /// name, leaves the score lists. True if there was something to do.
    bool GoOn() {
        if (board.pPlay->isVisible())
            ClickOn(board.pPlay);
        else if (board.pCont->isVisible())
            ClickOn(board.pCont);
        else if (name.isVisible()) {
            mPrompts << name.Label1->text();
            QTest::keyClicks(name.Text1, QStringLiteral(" Ann%1 ").arg(mPrompts.size()));
            ClickOn(name.cmdContinue);
        } else if (scores.isVisible())
            ClickOn(scores.pCont);
        else
            return false;
        return true;
    }

    game::HighScoreTable Table(const char* file) {
        game::HighScoreTable table;
        table.Parse(BytesOf(mFolder.Path() / file));
        return table;
    }

    /// Waits until the playlist file has that many marks, which a thread may still be writing.
    bool FileGetsMarks(long count) const {
        return QTest::qWaitFor([&] {
            return QByteArray::fromStdString(BytesOf(mPlaylist)).count("#Songrush:1") == count;
        });
    }

    platform::QuitWatch mQuitWatch;
    SongFolder mFolder;
    f_Multi board;
    f_HighMulti scores;
    f_High name;
    game::Evening mEvening;
    game::Forms mForms{board, scores, name, mEvening};
    fs::path mPlaylist = mFolder.MakePlaylist(mFolder.MakeSongs(12));
    bool mLeaves = false; // the program, where a playlist is chosen
    QStringList mPrompts;
    std::int64_t mNow = 1000; // milliseconds
    platform::TimeSource mRealTime;
};

TEST_F(GameTest, AnswersAreScoredByTheClockAndTheBestScoreIsKept) {
    StopTime();
    auto game = NewGame<c_gMulti>(1);
    bool thought = false;
    Robot robot([&] {
        if (GoOn() || Choice(true) == nullptr)
            return;
        if (!std::exchange(thought, true)) {
            mNow += 7500;
        } else if (board.ElapsedTime() > 0) { // the clock has ticked
            ClickOn(Choice(true));
            thought = false;
        }
    });
    game->Run();
    EXPECT_FALSE(game->ExitProgram());
    EXPECT_EQ(mPrompts, QStringList("You got a High Score! Please Enter your name below."));
    EXPECT_EQ(Table("H1.dat").Name(0), "Ann1");
    EXPECT_EQ(Table("H1.dat").Score(0), QString::number(6 * 7500));
    game.reset();
    EXPECT_TRUE(FileGetsMarks(6));
}

TEST_F(GameTest, TheFirstKeyAnswersAndNothingElseOfTheQuestionCounts) {
    StopTime();
    auto game = NewGame<c_gMulti>(1);
    const struct {
        const char* what;
        Qt::KeyboardModifiers with;
        std::array<int, 4> keys;
        std::array<quint32, 4> scanCodes;
    } keyboards[] = {
        {"digits", {}, {'1', '2', '3', '4'}, {10, 11, 12, 13}},
        {"no scan codes", {}, {'1', '2', '3', '4'}, {}},
        {"French", {}, {'&', 0xc9, '"', '\''}, {10, 11, 12, 13}},
        {"keypad", Qt::KeypadModifier, {'1', '2', '3', '4'}, {87, 88, 89, 83}},
        {"keypad without Num Lock",
         Qt::KeypadModifier,
         {Qt::Key_End, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Left},
         {87, 88, 89, 83}},
        {"Programmer Dvorak", Qt::ShiftModifier, {'1', '2', '3', '4'}, {13, 14, 12, 15}},
    };
    const auto* keyboard = std::begin(keyboards);
    Robot robot([&] {
        if (GoOn() || Choice(true) == nullptr)
            return;
        const auto boxes = board.ChoiceBoxes();
        const auto right =
            static_cast<std::size_t>(std::ranges::find(boxes, Choice(true)) - boxes.begin());
        Fingers fingers;
        for (const auto command : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
            fingers.mWith = command;
            fingers.Down(Qt::Key_H);
            fingers.Down((right + 1) % 4 + '1');
        }
        fingers.mWith = keyboard->with;
        fingers.mScanCode = keyboard->scanCodes[right];
        fingers.Down(keyboard->keys[right]);
        fingers.mScanCode = 0;
        fingers.Down(Qt::Key_H);
        fingers.Down((right + 1) % 4 + '1');
        ++keyboard;
    });
    game->Run();
    EXPECT_EQ(keyboard, std::end(keyboards));
    EXPECT_EQ(Table("H1.dat").Score(0), QString::number(6 * 120000));
}

TEST_F(GameTest, PlayedAgainItBeginsAtNoPointsAndGoesOnWithTheOtherSongs) {
    StopTime();
    auto game = NewGame<c_gMulti>(1);
    int games = 0;
    std::set<QString> titles;
    Robot robot([&] {
        if (scores.pAgain->isVisible() && !name.isVisible() && ++games == 1)
            return ClickOn(scores.pAgain);
        if (GoOn() || Choice(true) == nullptr)
            return;
        titles.insert(Choice(true)->accessibleName());
        ClickOn(Choice(titles.size() <= 6));
    });
    game->Run();
    EXPECT_EQ(games, 2);
    EXPECT_EQ(titles.size(), 12U);
    EXPECT_EQ(mPrompts.size(), 1) << "the second game has no points";
    game.reset();
    EXPECT_TRUE(FileGetsMarks(12));
}

TEST_F(GameTest, TwelvePlayersTakeTurnsSeeAllScoresAndAreAskedForNamesByTheirRank) {
    toolkit::WriteNumbersInEnglish();
    StopTime();
    auto game = NewGame<c_gMulti>(12);
    int question = 0;
    int lists = 0;
    Robot robot([&] {
        lists += scores.isVisible() && !name.isVisible();
        const bool third = question == 26; // the second player's
        if (board.pCont->isVisible() && Says("3 right in a row!") != third)
            ADD_FAILURE() << "after question " << question;
        if (board.pCont->isVisible() && third) {
            EXPECT_TRUE(Says("Player 2: 360,000") && Says("Player 3: 120,000"));
        }
        // Only the second player knows the songs, and the third one once.
        if (!GoOn() && Choice(true) != nullptr) {
            const bool knows = question % 12 == 1 || question == 2;
            ++question;
            ClickOn(Choice(knows));
        }
    });
    game->Run();
    EXPECT_EQ(question, 72);
    EXPECT_EQ(lists, 2) << "the scores and the table";
    const game::HighScoreTable table = Table("H1.dat");
    EXPECT_EQ(table.Score(0), QString::number(6 * 120000));
    EXPECT_EQ(table.Score(1), QString::number(120000));
    EXPECT_EQ(table.Score(2), "0");
    EXPECT_EQ(mPrompts, QStringList({"Player 1 got a High Score! Please Enter Their name below.",
                                     "Player 2 got a High Score! Please Enter Their name below."}));
}

TEST_F(GameTest, ABetFixesTheClipAndThePointsAndHasItsOwnTable) {
    StopTime();
    auto game = NewGame<c_gBet>(1);
    int bets = 0;
    Robot robot([&] {
        if (BetsNow() && board.PChoice1->isVisible() && !board.pPlay->isVisible())
            return ClickOn(bets++ == 0 ? board.pChoice4 : board.pChoice2);
        if (board.pCont->isVisible()) {
            EXPECT_EQ(Audio().Position() == 0, bets == 1) << "an early answer lets it play on";
        }
        if (GoOn() || Choice(true) == nullptr)
            return;
        if (bets == 1 && board.TimeLimit() == 5) {
            mNow += 5300; // past the bet: the next tick stops the clip
            return;
        }
        EXPECT_EQ(board.TimeLimit(), bets == 1 ? f_Multi::kClipStopped : 2);
        EXPECT_EQ(board.ElapsedTime(), bets == 1 ? 5 : 0);
        ClickOn(Choice(true));
    });
    game->Run();
    EXPECT_EQ(bets, 6);
    EXPECT_EQ(Table("H2.dat").Score(0), QString::number(25000 + 5 * 70000));
    EXPECT_FALSE(fs::exists(mFolder.Path() / "H1.dat"));
    game.reset();
    const auto next = NewGame<c_gMulti>(1);
    EXPECT_EQ(board.TimeLimit(), 0) << "a bet's limit must not cut later clips short";
}

TEST_F(GameTest, TheCloseButtonEndsTheGameAlsoWhereABetIsDue) {
    auto game = NewGame<c_gBet>(1);
    Robot robot([&] {
        if (!board.PChoice1->isVisible())
            return;
        EXPECT_TRUE(Minimises(board));
        ClickOn(board.pX);
    });
    game->Run();
    EXPECT_TRUE(game->ExitProgram());
    EXPECT_FALSE(board.isVisible());
    EXPECT_FALSE(fs::exists(mFolder.Path() / "H2.dat"));
}

TEST_F(GameTest, AGameIsRefusedWithoutSongsThatCanBePlayed) {
    const auto songs = mFolder.MakeSongs(9);
    const auto nine = mFolder.MakePlaylist(songs);
    const auto dead =
        mFolder.MakePlaylist(std::vector<fs::path>(10, mFolder.Path() / "gone.mp3"), "Dead.m3u");
    const std::pair<fs::path, QString> cases[] = {
        {"", "Songrush requires a playlist to play."},
        {nine, "Songrush Requires atleast 10 songs in a playlist."},
        {dead, "None of the songs in this playlist can be played."},
        {songs[0], "song1.mp3 is not a playlist."},
        {mFolder.Path() / "Music", "Music cannot be read:\nInvalid argument"}};
    for (const auto& [path, message] : cases) {
        const std::string bytes = fs::is_regular_file(path) ? BytesOf(path) : "";
        mPlaylist = path;
        auto game = NewGame<c_gMulti>(1);
        Robot robot([] {});
        game->Run();
        EXPECT_EQ(robot.Messages(), QStringList(message));
        EXPECT_EQ(robot.Frames(), QStringList("Songrush, Information, OK"));
        EXPECT_FALSE(game->ExitProgram() || board.isVisible());
        game.reset();
        EXPECT_EQ(fs::is_regular_file(path) ? BytesOf(path) : "", bytes) << path;
    }
    mLeaves = true;
    auto game = NewGame<c_gMulti>(1);
    game->Run();
    EXPECT_TRUE(game->ExitProgram());
}

TEST_F(GameTest, WhenTheSongsAreGoneTheGameGoesToItsScores) {
    auto game = NewGame<c_gMulti>(1);
    int asked = 0;
    QString vanished; // the title of the second song
    Robot robot([&] {
        if (board.pCont->isVisible() && asked == 2) {
            EXPECT_TRUE(Says(vanished));
        }
        if (GoOn() || !board.PChoice1->isVisible())
            return;
        if (++asked == 2) {
            vanished = Choice(true)->accessibleName();
            fs::remove_all(mFolder.Path() / "Music");
        }
        ClickOn(asked == 2 ? Choice(false) : board.PChoice1);
    });
    game->Run();
    EXPECT_EQ(robot.Messages(),
              QStringList("None of the songs in this playlist can be played any more."));
    EXPECT_LE(asked, 3) << "but for one that was ready by then";
    EXPECT_TRUE(FileGetsMarks(asked));
}

TEST_F(GameTest, ASongIsWaitedForOnALiveBoardThatCanBeLeft) {
    auto game = NewGame<c_gMulti>(1);
    std::optional<HeldReads> held;
    int asked = 0;
    int waits = 0;
    Robot robot([&] {
        if (Says("Loading...") && held->Waiting() > 0) {
            EXPECT_FALSE(board.pPlay->isVisible() || Choice(true));
            if (++waits == 1)
                held.reset();
            else
                ClickOn(board.pX);
        } else if (Choice(true) != nullptr) {
            held.reset();
            held.emplace("/Music/");
            ++asked;
            ClickOn(Choice(true));
        } else {
            GoOn();
        }
    });
    game->Run();
    EXPECT_EQ(waits, 2);
    EXPECT_TRUE(game->ExitProgram());
    held.reset();
    EXPECT_TRUE(FileGetsMarks(asked));
}

TEST_F(GameTest, AMissingSoundDeviceIsToldOnceAndTheGameGoesOn) {
    const QByteArray before = qgetenv("SDL_AUDIODRIVER");
    qputenv("SDL_AUDIODRIVER", "none");
    auto game = NewGame<c_gMulti>(1);
    const auto told = [this] { return Says("No sound device was found, so nothing is heard."); };
    int questions = 0;
    Robot robot([&] {
        if (Choice(true) == nullptr)
            GoOn();
        else if (questions == 0 ? told() : board.ElapsedTime() > 0.3F) {
            EXPECT_EQ(told(), questions == 0);
            ClickOn(questions++ == 0 ? Choice(true) : board.pX);
        }
    });
    game->Run();
    EXPECT_EQ(questions, 2);
    gAudio.reset();
    qputenv("SDL_AUDIODRIVER", before);
}

} // namespace
