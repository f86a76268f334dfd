#include "audio/c_XAudio.h"
#include "editor/c_player.h"
#include "library/c_ID3.h"
#include "platform/Motion.h"
#include "tests/Fingers.h"
#include "tests/Looks.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"
#include "tests/audio/ToneFile.h"

#include <QElapsedTimer>
#include <QTest>
#include <QWindow>
#include <tuple>

namespace {

using namespace toolkit;
namespace fs = std::filesystem;

class Player : public testing::Test {
protected:
    Player() {
        PrepareLooks();
        Show();
    }

    void Show() {
        mPlayer->Show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Stage::Get()));
    }

    fs::path Song(const QString& title = "A title") const {
        static const std::string bytes = tonefile::Encode(40) + '\0';
        const fs::path song = mFolder.Path() / "song.mp3";
        std::ofstream(song, std::ios::binary) << bytes;
        c_ID3 tag;
        tag.SetTitle(title);
        tag.PutIdTag(song);
        return song;
    }

    void Open(const fs::path& song) {
        mPlayer->OpenFile(song);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !mPlayer->Loading(); }));
    }

    void Key(Qt::Key key) { QTest::keyClick(StageWindow(), key); }

    bool Passes(double seconds) const {
        return QTest::qWaitFor([=] { return Audio().Position() > seconds; });
    }

    bool Stands() const {
        const double before = Audio().Position();
        QTest::qWait(150);
        return Audio().Position() == before;
    }

    /// Waits for the song to play at double or at normal speed; a busy machine may be late.
    bool Becomes(bool fast) const {
        return QTest::qWaitFor([=] {
            QElapsedTimer clock;
            clock.start();
            const double from = Audio().Position();
            QTest::qWait(300);
            const double way = (Audio().Position() - from) * 1000;
            return way > 0 && (way > 1.5 * static_cast<double>(clock.elapsed())) == fast;
        });
    }

    /// Lets the player's timer tick, which does not by itself then.
    void Tick(int times) {
        mForm.PosTimer.setInterval(1'000'000);
        for (int i = 0; i < times; ++i) {
            QTimerEvent tick(mForm.PosTimer.timerId());
            QCoreApplication::sendEvent(&mForm.PosTimer, &tick);
        }
    }

    SongFolder mFolder;
    std::unique_ptr<c_player> mPlayer = std::make_unique<c_player>();
    f_Player& mForm = mPlayer->Form();
};

TEST_F(Player, PlaysPausesStopsAndRestsAtTheSongsEnd) {
    Open(Song());
    ClickOn(mForm.pPlay);
    Audio().SeekTo(20);
    EXPECT_TRUE(QTest::qWaitFor([this] { return mForm.pTimes->Text() >= "0:20 / 0:40"; }));
    ClickOn(mForm.pPause);
    EXPECT_TRUE(Stands());
    EXPECT_TRUE(mForm.PosTimer.isActive());
    for (PictureBox* key : {mForm.pPause, mForm.pPlay, mForm.pPlay}) {
        ClickOn(key);
        EXPECT_TRUE(Passes(Audio().Position() + 0.1));
    }
    ClickOn(mForm.pStop);
    EXPECT_EQ(Audio().Position(), 0);
    EXPECT_TRUE(Stands());
    EXPECT_FALSE(mForm.PosTimer.isActive());
    ExpectLook(mForm, "player");
    ClickOn(mForm.pPlay);
    Audio().SeekTo(39.8);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !mForm.PosTimer.isActive(); }));
    ExpectLook(mForm, "player-end");
    ClickOn(mForm.pPlay);
    EXPECT_TRUE(Passes(0.1));
    EXPECT_LT(Audio().Position(), 30);
}

TEST_F(Player, GoesWhereTheBarIsPressedAndIsDraggedElsewhereAndComesBackToTheCorner) {
    Open(Song());
    const std::tuple<QPoint, QPoint, const char*, double> cases[] = {
        {{150, 80}, {40, 30}, "0:00 / 0:40", 0},
        {{230, 57}, {0, 0}, "0:20 / 0:40", 20},
        {{170, 57}, {0, 0}, "0:00 / 0:40", 0},
        {{291, 57}, {0, 0}, "0:40 / 0:40", 40}};
    for (const auto& [grip, way, times, seconds] : cases) {
        const QPoint from = OnStage(mForm, grip);
        QTest::mousePress(StageWindow(), Qt::LeftButton, {}, from);
        for (const QPoint to : {from + way, from + way + way}) { // the first begins to drag
            QCursor::setPos(Stage::Get().mapToGlobal(to));
            QTest::mouseMove(StageWindow(), to);
        }
        QTest::mouseRelease(StageWindow(), Qt::LeftButton, {}, from);
        EXPECT_NEAR(Audio().Position(), seconds, 0.2);
        EXPECT_EQ(mForm.pTimes->Text(), times);
        mPlayer->Show();
        EXPECT_EQ(PlaceOf(mForm).topLeft(), QPoint(40, 30));
    }
    ClickOn(mForm.pX);
    Show();
    EXPECT_EQ(PlaceOf(mForm).topLeft(), QPoint(0, 0));
    EXPECT_EQ(mForm.GetLayer(), Form::Layer::OnTop);
    EXPECT_EQ(mForm.pTimes->Text(), "0:00 / 0:40");
    EXPECT_TRUE(Stands());
}

TEST_F(Player, IsFastOnlyWhileTheKeyIsHeld) {
    QWindow* window = StageWindow();
    Open(Song());
    ClickOn(mForm.pPlay);
    QTest::mousePress(window, Qt::LeftButton, {}, OnStage(mForm, mForm.pFF->Place().center()));
    EXPECT_TRUE(Becomes(true));
    QTest::mouseRelease(window, Qt::LeftButton, {}, OnStage(mForm, QPoint(280, 75))); // beside it
    EXPECT_TRUE(Becomes(false));
    mForm.pFF->setFocus();
    Fingers fingers;
    fingers.Down(Qt::Key_Space);
    fingers.mTime += 600;
    fingers.Up(Qt::Key_Space); // and down again at the same time, as X tells that it repeats
    fingers.Down(Qt::Key_Space);
    fingers.Down(Qt::Key_Space, true);
    EXPECT_TRUE(Becomes(true));
    fingers.mTime += 600;
    fingers.Up(Qt::Key_Space);
    EXPECT_TRUE(Becomes(false));
}

TEST_F(Player, ALongTitleScrollsRoundTheStripOrGoesOnPartByPart) {
    const std::tuple<bool, int, const char*> steps[] = {
        {false, 10, "player-scrolled"}, {false, 120, "player-comes-in"},
        {false, 0, "player-title"},     {true, 29, "player-title"},
        {true, 1, "player-part"},       {true, 30, "player-title"}};
    Open(Song(QString("12345 ").repeated(5) + "12345 7890 2345 78"));
    for (const auto& [still, ticks, look] : steps) {
        platform::ReplaceMotionWish([less = still] { return less; });
        ClickOn(ticks > 0 ? mForm.pPlay : mForm.pStop);
        Tick(ticks);
        ExpectLook(*mForm.pTitle, look);
    }
    platform::ReplaceMotionWish({});
}

TEST_F(Player, FallsSilentWhenItIsClosedButLeavesTheSoundOfOthersAlone) {
    const std::function<void()> ways[] = {[this] { Key(Qt::Key_Escape); },
                                          [this] { ClickOn(mForm.pPause), Stage::Get().close(); },
                                          [this] { mPlayer = nullptr; }};
    for (const auto& close : ways) {
        Show();
        Open(Song());
        ClickOn(mForm.pPlay);
        EXPECT_TRUE(Passes(0.1));
        close();
        EXPECT_EQ(Audio().Position(), 0);
        EXPECT_TRUE(Stands());
    }
    auto other = std::make_unique<c_player>();
    other->OpenFile(Song());
    other->bPlay_Clicked();
    other->bX_Clicked();
    Audio().Play();
    other = nullptr;
    EXPECT_TRUE(Passes(0.1));
}

TEST_F(Player, StaysAtTheStartWithAFileThatCannotBeOpened) {
    Open(Song());
    ClickOn(mForm.pPlay);
    EXPECT_TRUE(Passes(0.1));
    Open("/missing.mp3");
    for (PictureBox* key : {mForm.pPlay, mForm.pPause, mForm.pPause, mForm.pFF}) {
        ClickOn(key);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !mForm.PosTimer.isActive(); }));
        ExpectLook(mForm, "player-unplayable");
    }
}

} // namespace
