#include "app/c_Menu.h"
#include "app/f_Menu.h"
#include "platform/Wait.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

namespace {

class MenuTest : public testing::Test {
protected:
    /// Runs the menu with a robot that clicks each box in turn, once it is shown.
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

TEST(SizeChoice, OffersWhatFitsTheScreenOfTheForm) {
    toolkit::Form form(QStringLiteral("f_Test"), QSize(300, 200));
    SizeChoice sizes(form);
    QSignalSpy chosen(&sizes, &SizeChoice::Chosen);
    sizes.Show();
    form.show();
    EXPECT_FALSE(form.findChild<QWidget*>("pSize300"));
    auto* box = form.findChild<QWidget*>("pSize150");
    EXPECT_EQ(box->accessibleName(), "Window size 150 %");
    ClickOn(box);
    sizes.Step(1);
    sizes.Step(-1); // there is none
    ASSERT_EQ(chosen.size(), 2);
    EXPECT_EQ(chosen[0][0], 150);
    EXPECT_EQ(chosen[1][0], 150);
}

TEST_F(MenuTest, OffersNoSizesWhereNoneButItsOwnFits) {
    bool looked = false;
    Robot robot([&] {
        if (!form.isVisible())
            return;
        QTest::keyClick(&form, Qt::Key_Plus, Qt::ControlModifier);
        looked = form.isVisible() && form.findChild<QWidget*>("pSize100") == nullptr;
        ClickOn(form.pX);
    });
    c_Menu(form).Choose();
    EXPECT_TRUE(looked);
}

} // namespace
