#include "app/c_Menu.h"
#include "app/f_Menu.h"
#include "platform/Motion.h"
#include "platform/Wait.h"
#include "tests/Looks.h"
#include "tests/OnStage.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"

#include <QComboBox>
#include <QTest>
#include <QThread>
#include <QTimer>

namespace {

constexpr int kCreditsEnd = 90;
constexpr int kGlidedTop = 100; // of a button that has glided
constexpr int kGlidedEnd = 188;

/// The menu where a pixel is not a whole number of the screen's.
class MenuTest : public testing::Test {
protected:
    MenuTest() { toolkit::Stage::Get().resize(1040, 780); }
    ~MenuTest() override { toolkit::Stage::Get().resize(toolkit::kStageSize); }

    /// Runs the menu with a robot that clicks each box in turn, once it is shown. Returns the mode
    /// and the number of players, as in "Betting 2".
    QString Choose(std::vector<toolkit::PictureBox*> clicks) {
        std::size_t next = 0;
        Robot robot([&] {
            if (next >= clicks.size() || !clicks[next]->isVisible())
                return;
            EXPECT_EQ(GroundIsClean(kCreditsEnd), form.pSingle->isVisible());
            EXPECT_TRUE(GroundIsClean(kGlidedEnd)) << "it is left on its way";
            const QRect above(0, 0, 800, kGlidedTop - 1);
            const QImage credits = form.Dc()->Image().copy(toolkit::Canvas::ScreenPixels(above));
            EXPECT_TRUE(mCredits.isNull() || mCredits == credits) << "it went too far";
            mCredits = credits;
            QTimer::singleShot(180, &form, [] { QThread::msleep(60); }); // a late frame
            ClickOn(clicks[next++]);
        });
        c_Menu menu(form);
        const QString mode = menu.Choose();
        EXPECT_EQ(next, clicks.size());
        return mode + QStringLiteral(" %1").arg(menu.PlayerCode());
    }

    bool GroundIsClean(int top) {
        const QRect below = toolkit::Canvas::ScreenPixels(QRect(0, top, 800, 600 - top));
        return form.Dc()->Image().copy(below) == gBack->HDC(0)->Image().copy(below);
    }

    platform::QuitWatch mQuitWatch;
    SongFolder mFolder;
    f_Menu form;
    QImage mCredits; // with what is above them
};

TEST_F(MenuTest, EveryWayLeadsToItsModeForOnePlayerOrAListedNumber) {
    EXPECT_EQ(Choose({form.pMulti, form.pChoice3, form.pSingle, form.pChoice2}), "Betting 1");
    form.cPlayers->setCurrentText(QStringLiteral("5"));
    QTest::keyClicks(form.cPlayers, QStringLiteral("7"));
    EXPECT_EQ(Choose({form.pMulti, form.PChoice1}), "MultipleChoice 5");
    form.cPlayers->setCurrentIndex(-1);
    EXPECT_EQ(Choose({form.pMulti, form.PChoice1}), "MultipleChoice 2");
    EXPECT_TRUE(Choose({form.pEditor}).startsWith("Editor"));
    EXPECT_TRUE(Choose({&form.Scores->Box()}).startsWith("HighScores"));
}

TEST_F(MenuTest, LooksAsItShould) {
    toolkit::Stage::Get().resize(toolkit::kStageSize);
    platform::ReplaceMotionWish([] { return true; });
    PrepareLooks();
    Robot robot([this] {
        const bool first = form.pMulti->isVisible();
        if (form.isVisible())
            ExpectLook(form, first ? "menu" : "menu-games");
        ClickOn(first ? form.pMulti : form.pX);
    });
    c_Menu(form).Choose();
    platform::ReplaceMotionWish({});
}

TEST_F(MenuTest, ADoubleClickOnOnePlayerChoosesNoGame) {
    Robot robot([this] {
        if (form.pChoice3->isVisible()) {
            EXPECT_TRUE(Minimises(form));
            ClickOn(form.pX);
        } else if (form.pSingle->isVisible())
            QTest::mouseDClick(StageWindow(), Qt::LeftButton, {},
                               OnStage(form, form.pSingle->Place().center()));
    });
    EXPECT_EQ(c_Menu(form).Choose(), "Exit");
}

} // namespace
