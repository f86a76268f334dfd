#include "audio/c_XAudio.h"
#include "game/c_gBet.h"
#include "platform/Settings.h"
#include "tests/Fingers.h"
#include "tests/HeldReads.h"
#include "tests/audio/ToneFile.h"
#include "tests/game/GameScene.h"
#include "toolkit/Stage.h"
#include "toolkit/Style.h"

#include <QSignalSpy>
#include <set>
#include <tuple>

namespace fs = std::filesystem;

namespace {

class GameTest : public testing::Test, protected GameScene {};

TEST_F(GameTest, TheFirstKeyAnswersIsScoredByTheClockAndTheNextGameBeginsAnew) {
    StopTime();
    using Keys = std::array<int, 4>;
    const std::tuple<Qt::KeyboardModifier, Keys, std::array<quint32, 4>> keyboards[] = {
        {Qt::NoModifier, {'1', '2', '3', '4'}, {10, 11, 12, 13}},
        {Qt::NoModifier, {'&', 0xc9, '"', '\''}, {10, 11, 12, 13}},   // French
        {Qt::KeypadModifier, {'1', '2', '3', '4'}, {87, 88, 89, 83}}, // with Num Lock
        {Qt::KeypadModifier,                                          // without it
         {Qt::Key_End, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Left},
         {87, 88, 89, 83}},
        {Qt::ShiftModifier, {'1', '2', '3', '4'}, {13, 14, 12, 15}}, // Programmer Dvorak
        {Qt::NoModifier, {'1', '2', '3', '4'}, {}},
    };
    std::set<QString> titles;
    Play<c_gMulti>(1, [&] {
        if (scores.pAgain->isVisible() && !name.isVisible() && titles.size() == 6)
            return ClickOn(scores.pAgain);
        if (GoOn() || Choice(true) == nullptr)
            return;
        if (titles.insert(Choice(true)->accessibleName()).second)
            mNow += 7500;
        if (titles.size() > 6)
            return ClickOn(Choice(false));
        if (board.ElapsedTime() == 0)
            return; // the clock has not ticked yet
        const auto boxes = board.ChoiceBoxes();
        const auto right =
            static_cast<std::size_t>(std::ranges::find(boxes, Choice(true)) - boxes.begin());
        Fingers fingers;
        for (const auto command : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
            fingers.mWith = command;
            fingers.Down(Qt::Key_H);
            fingers.Down((right + 1) % 4 + '1');
        }
        const auto& [with, keys, scanCodes] = keyboards[titles.size() - 1];
        fingers.mWith = with;
        fingers.mScanCode = scanCodes[right];
        fingers.Down(keys[right]);
        fingers.mScanCode = 0;
        fingers.Down(Qt::Key_H);
        fingers.Down((right + 1) % 4 + '1');
    });
    EXPECT_FALSE(mExit);
    EXPECT_EQ(titles.size(), 12U) << "other songs";
    EXPECT_EQ(mPrompts, QStringList("You got a High Score! Please Enter your name below."));
    EXPECT_EQ(Table("H1.dat").Name(0), "Ann1");
    EXPECT_EQ(Table("H1.dat").Score(0), QString::number(6 * 7500));
}

TEST_F(GameTest, FourPlayersTakeTurnsSeeAllScoresAndAreAskedForNamesByTheirRank) {
    toolkit::WriteNumbersInEnglish();
    platform::WriteSetting("Songrush", "Scores", "Names", "");
    StopTime();
    StandStill();
    int question = 0;
    int lists = 0;
    Play<c_gMulti>(4, [&] {
        const bool third = question == 10; // the second player's
        EXPECT_FALSE(Says("2 right in a row!"));
        EXPECT_TRUE(!Says("3 right in a row!") || third);
        if (board.pPlay->isVisible() && question == 9)
            ExpectLook(board, "game-turn");
        if (board.pCont->isVisible() && (third || question == 11))
            ExpectLook(board, third ? "game-right" : "game-wrong");
        if (name.isVisible())
            ExpectLook(toolkit::Stage::Get(), mPrompts.isEmpty() ? "game-first-name" : "game-name");
        if (scores.isVisible() && !name.isVisible() && ++lists == 1)
            ExpectLook(scores, "game-scores");
        if (GoOn() || Choice(true) == nullptr)
            return;
        // Only the second player knows the songs, and the third one some, but no three in a row.
        const bool knows = question % 4 == 1 || question == 2 || question == 6 || question == 14;
        if (question == 9 && board.ElapsedTime() == 0) {
            mNow = 6500;
            return;
        }
        if (question == 9 && board.pHint->isVisible()) {
            ExpectLook(board, "game-question");
            const auto still = platform::ReplaceRandom([n = 0]() mutable { return ++n % 2 * 0.7; });
            ClickOn(board.pHint);
            platform::ReplaceRandom(still);
            return ExpectLook(board, "game-hint");
        }
        ++question;
        ClickOn(Choice(knows));
    });
    EXPECT_EQ(question, 24);
    EXPECT_EQ(lists, 2) << "the scores and the table";
    const game::HighScoreTable table = Table("H1.dat");
    EXPECT_EQ(table.Score(0), QString::number(5 * 120000 + 13500 - 10000));
    EXPECT_EQ(table.Score(1), QString::number(3 * 120000));
    EXPECT_EQ(table.Score(2), "0");
    EXPECT_EQ(mPrompts, QStringList({"Player 1 got a High Score! Please Enter Their name below.",
                                     "Player 2 got a High Score! Please Enter Their name below."}));
}

TEST_F(GameTest, ABetFixesTheClipAndThePointsHasItsOwnTableAndCanBeLeftOpen) {
    StopTime();
    StandStill();
    int bets = 0;
    Play<c_gBet>(1, [&] {
        if (BetsNow()) {
            if (++bets == 1)
                ExpectLook(board, "game-bets");
            return ClickOn(bets == 1 ? board.pChoice4 : board.pChoice2);
        }
        if (board.pCont->isVisible()) {
            EXPECT_EQ(Audio().Position() == 0, bets == 1) << "an early answer lets it play on";
            if (bets == 1)
                ExpectLook(board, "game-bet-won");
        }
        if (GoOn() || Choice(true) == nullptr)
            return;
        if (bets == 1 && board.TimeLimit() == 5) { // the next tick stops the clip
            mNow += 5300;
            Audio().SeekTo(5.05);
            return;
        }
        EXPECT_EQ(board.TimeLimit(), bets == 1 ? f_Multi::kClipStopped : 2);
        EXPECT_EQ(board.ElapsedTime(), bets == 1 ? 5 : 0);
        if (bets == 1)
            ExpectLook(board, "game-over");
        ClickOn(Choice(true));
    });
    EXPECT_EQ(bets, 6);
    EXPECT_EQ(Table("H2.dat").Score(0), QString::number(25000 + 5 * 70000));
    EXPECT_FALSE(fs::exists(mFolder.Path() / "H1.dat"));
    Play<c_gBet>(1, [&] {
        EXPECT_EQ(board.TimeLimit(), 0) << "a bet's limit must not cut later clips short";
        EXPECT_TRUE(!BetsNow() || Minimises(board));
        if (BetsNow())
            ClickOn(board.pX);
    });
    EXPECT_TRUE(mExit);
    EXPECT_FALSE(board.isVisible());
}

TEST_F(GameTest, AClipIsCutWhenTheClockHasRunAndAllThatWasBetWasHeard) {
    StopTime();
    const fs::path song = mFolder.Path() / "long.mp3";
    std::ofstream(song, std::ios::binary) << tonefile::Encode(9);
    Audio().OpenFile(song);
    constexpr double kBegin = 5;
    Audio().SeekTo(kBegin);
    board.SetTimeLimit(2);
    board.InitTimer();
    const std::tuple<int, double, int> cases[] = {
        {1900, 2.1, 2}, {200, 1.9, 2}, {0, 2.1, f_Multi::kClipStopped}};
    for (const auto& [passed, heard, limit] : cases) {
        mNow += passed;
        Audio().SeekTo(kBegin + heard);
        EXPECT_TRUE(QSignalSpy(&board, &f_Multi::ClockMoved).wait());
        EXPECT_EQ(board.TimeLimit(), limit) << heard << " s";
    }
    EXPECT_EQ(board.ElapsedTime(), 2);
}

TEST_F(GameTest, AGameIsRefusedWithoutSongsThatCanBePlayed) {
    const auto songs = mFolder.MakeSongs(9);
    const std::string bytes = BytesOf(songs[0]);
    const std::pair<fs::path, QString> cases[] = {
        {"", "Songrush requires a playlist to play."},
        {mFolder.MakePlaylist(songs), "Songrush Requires atleast 10 songs in a playlist."},
        {mFolder.MakePlaylist(std::vector<fs::path>(10, mFolder.Path() / "gone"), "Dead.m3u"),
         "None of the songs in this playlist can be played."},
        {songs[0], "song1.mp3 is not a playlist."},
        {mFolder.Path() / "Music", "Music cannot be read:\nInvalid argument"}};
    for (const auto& [path, message] : cases) {
        mPlaylist = path;
        Play<c_gMulti>(1, [] {});
        EXPECT_EQ(mMessages, QStringList(message));
        EXPECT_EQ(mFrames, QStringList("Songrush, Information, OK"));
    }
    mLeaves = true;
    Play<c_gMulti>(1, [] {});
    EXPECT_EQ(mMessages, QStringList());
    EXPECT_TRUE(mExit);
    EXPECT_EQ(BytesOf(songs[0]), bytes);
}

TEST_F(GameTest, WhenTheSongsAreGoneTheGameGoesToItsScoresUnlessTheyComeBackInTime) {
    const fs::path music = mFolder.Path() / "Music";
    const fs::path away = mFolder.Path() / "away";
    for (const bool back : {true, false}) {
        int asked = 0;
        Play<c_gMulti>(1, [&] {
            if (back && asked == 3 && fs::exists(away))
                fs::rename(away, music);
            if (GoOn() || !board.PChoice1->isVisible())
                return;
            if (asked == 2 && board.ElapsedTime() < 0.3F)
                return; // the loss has not been noticed yet
            if (++asked == 2)
                fs::rename(music, away);
            ClickOn(board.PChoice1);
        });
        EXPECT_EQ(asked, back ? 6 : 3) << "one was ready";
        EXPECT_EQ(mMessages.join(""),
                  back ? "" : "None of the songs in this playlist can be played any more.");
        EXPECT_EQ(mFrames.join(""), back ? "" : "Songrush, Information, OK");
    }
}

TEST_F(GameTest, MissingSoundIsToldOnceAndASongIsWaitedForOnALiveBoardThatCanBeLeft) {
    const QByteArray before = qgetenv("SDL_AUDIODRIVER");
    qputenv("SDL_AUDIODRIVER", "none");
    std::optional<HeldReads> held;
    int asked = 0;
    int waits = 0;
    Play<c_gMulti>(1, [&] {
        const bool told = Says("No sound device was found, so nothing is heard.");
        if (Says("Loading...") && held->Waiting() > 0) {
            EXPECT_FALSE(board.pPlay->isVisible() || Choice(true));
            if (++waits == 1)
                held.reset();
            else
                ClickOn(board.pX);
        } else if (Choice(true) == nullptr) {
            GoOn();
        } else if (asked == 0 ? told : board.ElapsedTime() > 0.3F) {
            EXPECT_EQ(told, asked++ == 0);
            held.reset();
            held.emplace("/Music/");
            ClickOn(Choice(true));
        }
    });
    EXPECT_EQ(waits, 2);
    EXPECT_TRUE(mExit);
    held.reset();
    gAudio.reset();
    qputenv("SDL_AUDIODRIVER", before);
}

} // namespace
