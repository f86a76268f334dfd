#include "audio/c_XAudio.h"
#include "editor/c_player.h"
#include "library/c_ID3.h"
#include "tests/Looks.h"
#include "tests/OnStage.h"
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

    fs::path Song() const {
        static const std::string bytes = tonefile::Encode(40) + '\0';
        const fs::path song = mFolder.Path() / "song.mp3";
        std::ofstream(song, std::ios::binary) << bytes;
        c_ID3 tag;
        tag.SetTitle("A title");
        tag.PutIdTag(song);
        return song;
    }

    void Open(const fs::path& song) {
        mPlayer->OpenFile(song);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !mPlayer->Loading(); }));
    }

    bool Passes(double seconds) const {
        return QTest::qWaitFor([=] { return Audio().Position() > seconds; });
    }

    bool Stands() const {
        const double before = Audio().Position();
        QTest::qWait(150);
        return Audio().Position() == before;
    }

    /// Waits for the song to play at double or at normal speed; a busy machine may be late and keep
    /// a device from its pace.
    bool Becomes(bool fast) const {
        const auto is = [=] {
            QElapsedTimer clock;
            clock.start();
            const double from = Audio().Position();
            QTest::qWait(300);
            const double way = (Audio().Position() - from) * 1000;
            return way > 0 && (way > 1.25 * static_cast<double>(clock.elapsed())) == fast;
        };
        return QTest::qWaitFor(is, 20000);
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

TEST_F(Player, GoesWhereTheBarIsPressedAndOpensAtTheStartInTheCorner) {
    Open(Song());
    const std::tuple<int, const char*, double> cases[] = {
        {230, "0:20 / 0:40", 20}, {170, "0:00 / 0:40", 0}, {291, "0:40 / 0:40", 40}};
    for (const auto& [x, times, seconds] : cases) {
        QTest::mousePress(StageWindow(), Qt::LeftButton, {}, OnStage(mForm, QPoint(250, 57)));
        QTest::mouseMove(StageWindow(), OnStage(mForm, QPoint(x, 57)));
        QTest::mouseRelease(StageWindow(), Qt::LeftButton);
        EXPECT_NEAR(Audio().Position(), seconds, 0.2);
        EXPECT_EQ(mForm.pTimes->Text(), times);
    }
    mForm.MoveTo(QPoint(40, 30));
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
    QTest::keyPress(window, Qt::Key_Space);
    EXPECT_TRUE(Becomes(true));
    QTest::keyRelease(window, Qt::Key_Space);
    EXPECT_TRUE(Becomes(false));
}

TEST_F(Player, FallsSilentWhenItIsClosedButLeavesTheSoundOfOthersAlone) {
    const std::function<void()> ways[] = {[] { QTest::keyClick(StageWindow(), Qt::Key_Escape); },
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
    Audio().Play();
    { const c_player other; }
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
