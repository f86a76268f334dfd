#include "app/c_Menu.h"
#include "app/f_Menu.h"
#include "platform/Wait.h"
#include "tests/OnStage.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

namespace {

class MenuTest : public testing::Test {
protected:
    /// Runs the menu with a robot that clicks each box in turn, as soon as it is shown.
    void Choose(std::vector<toolkit::PictureBox*> clicks) {
        std::size_t next = 0;
        Robot robot([&] {
            if (next < clicks.size() && clicks[next]->isVisible())
                ClickOn(clicks[next++]);
        });
        c_Menu menu(form);
        mMode = menu.Choose();
        mCode = menu.PlayerCode();
        EXPECT_EQ(next, clicks.size());
    }

    platform::QuitWatch mQuitWatch;
    SongFolder mFolder;
    f_Menu form;
    QString mMode;
    int mCode = 0;
};

TEST_F(MenuTest, AWayBackLeadsToOnePlayer) {
    Choose({form.pMulti, form.pChoice3, form.pSingle, form.pChoice2});
    EXPECT_EQ(mMode, "Betting");
    EXPECT_EQ(mCode, 1);
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

TEST_F(MenuTest, OnlyListedNumbersOfPlayersCanBeChosen) {
    form.cPlayers->setCurrentText(QStringLiteral("5"));
    QTest::keyClicks(form.cPlayers, QStringLiteral("7"));
    EXPECT_EQ(form.cPlayers->currentText(), "5");
    Choose({form.pMulti, form.PChoice1});
    EXPECT_EQ(mCode, 5);
    form.cPlayers->setCurrentIndex(-1);
    Choose({form.pMulti, form.PChoice1});
    EXPECT_EQ(mCode, 2);
}

TEST_F(MenuTest, BackWipesTheGlidedButtonAway) {
    const QRect below(0, 90, 800, 510);
    const QImage ground = gBack->HDC(0)->Image().copy(below);
    bool back = false;
    Robot robot([&] {
        if (!form.pChoice3->isVisible() && !back)
            return ClickOn(form.pSingle);
        EXPECT_EQ(form.Dc()->Image().copy(below) == ground, back);
        ClickOn(std::exchange(back, true) ? form.pX : form.pChoice3);
    });
    c_Menu(form).Choose();
    EXPECT_TRUE(back);
}

TEST_F(MenuTest, OffersTheSizesThatFitAndFullScreen) {
    const QSize before = toolkit::Stage::Get().size();
    bool looked = false;
    Robot robot([&] {
        if (!form.isVisible())
            return;
        EXPECT_FALSE(form.findChild<QWidget*>("pSize125")) << "larger than the screen";
        auto* full = form.findChild<QWidget*>("pFullScreen");
        EXPECT_EQ(full->accessibleDescription(), looked ? "As it is now" : "");
        if (std::exchange(looked, true))
            return ClickOn(form.pX);
        ClickOn(full);
    });
    c_Menu(form).Choose();
    EXPECT_TRUE(looked);
    toolkit::Stage::Get().SetFullScreen(false);
    EXPECT_TRUE(QTest::qWaitFor([before] { return toolkit::Stage::Get().size() == before; }));
}

} // namespace
