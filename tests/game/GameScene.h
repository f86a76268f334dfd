#pragma once

#include "game/Evening.h"
#include "game/HighScoreTable.h"
#include "game/c_gMulti.h"
#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "game/f_Multi.h"
#include "platform/Chance.h"
#include "platform/Motion.h"
#include "platform/Time.h"
#include "platform/Wait.h"
#include "tests/Looks.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"
#include "tests/game/FixedSource.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <optional>

/// The forms of a game with a playlist of its own, and what a player does with them.
class GameScene {
public:
    GameScene() = default;
    GameScene(const GameScene&) = delete;
    GameScene& operator=(const GameScene&) = delete;

protected:
    ~GameScene() {
        if (mRealTime.tickCount)
            platform::ReplaceTimeSource(mRealTime);
        platform::ReplaceMotionWish({});
        platform::ReplaceRandom({});
    }

    /// Has the game look the same each time: nothing moves, nothing is left to chance, and the
    /// ground is black.
    static void StandStill() {
        platform::ReplaceMotionWish([] { return true; });
        platform::ReplaceRandom([] { return 0.2; });
        PrepareLooks();
    }

    /// Stops the clock until a test moves it. The time of day then runs backwards, as it does at
    /// midnight.
    void StopTime() {
        mRealTime = platform::ReplaceTimeSource(
            {[this] { return -static_cast<double>(mNow); }, [this] { return mNow; }});
    }

    /// Plays a game, whose player does `act` again and again; its marks are in the file after that,
    /// or soon.
    template <typename Game> void Play(int players, std::function<void()> act) {
        Game game(mForms, [this] { return std::make_unique<FixedSource>(mPlaylist, mLeaves); });
        game.SetPlayers(players);
        Robot robot(std::move(act));
        game.Run();
        mExit = game.ExitProgram();
        mMessages = robot.Messages();
        mFrames = robot.Frames();
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

    /// Whether a button with the first of the bets can be pressed.
    bool BetsNow() const {
        return board.PChoice1->isVisible() && !board.pPlay->isVisible() &&
               board.PChoice1->accessibleName() == "1 Second, 140,000 Points";
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

    std::optional<platform::QuitWatch> mQuitWatch{std::in_place};
    SongFolder mFolder;
    f_Multi board;
    f_HighMulti scores;
    f_High name;
    game::Evening mEvening;
    game::Forms mForms{board, scores, name, mEvening};
    std::filesystem::path mPlaylist = mFolder.MakePlaylist(mFolder.MakeSongs(12));
    bool mLeaves = false; // the program, where a playlist is chosen
    bool mExit = false;
    QStringList mMessages, mFrames, mPrompts;
    std::int64_t mNow = 1000; // milliseconds
    platform::TimeSource mRealTime;
};
