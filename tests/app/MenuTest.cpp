#include "app/c_Menu.h"
#include "app/f_Menu.h"
#include "platform/Wait.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

namespace {

class MenuTest : public testing::Test {
protected:
    MenuTest() {
        gBack = std::make_unique<c_Surface>();
        gBack->CreateSurface(800, 600, QStringLiteral("Images\\Back.bmp"));
    }
    ~MenuTest() override { gBack.reset(); }

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

TEST_F(MenuTest, EveryWayThroughTheMenuNamesItsModeAndPlayers) {
    const struct {
        std::vector<toolkit::PictureBox*> clicks;
        const char* mode;
        int code;
    } cases[] = {
        {{form.pSingle, form.PChoice1}, "MultipleChoice", 1},
        {{form.pSingle, form.pChoice2}, "Betting", 1},
        {{form.pMulti, form.pChoice2}, "Betting", 2},
        {{form.pMulti, form.pChoice3, form.pSingle, form.PChoice1}, "MultipleChoice", 1},
        {{form.pEditor}, "Editor", 99},
        {{form.pX}, "Exit", -1},
        {{form.pMulti, form.pX}, "Exit", 2},
    };
    for (const auto& way : cases) {
        Choose(way.clicks);
        EXPECT_EQ(mMode, way.mode);
        EXPECT_EQ(mCode, way.code) << way.mode;
    }
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

TEST_F(MenuTest, TheSecondStageStandsInItsPlaces) {
    const struct {
        toolkit::PictureBox* first;
        int top;
        bool several;
    } cases[] = {{form.pSingle, 200, false}, {form.pMulti, 220, true}};
    for (const auto& stage : cases) {
        bool pressed = false;
        Robot robot([&] {
            if (!pressed) {
                pressed = true;
                ClickOn(stage.first);
            } else if (form.pChoice3->isVisible()) {
                EXPECT_EQ(form.PChoice1->geometry(), QRect(200, stage.top, 400, 50));
                EXPECT_EQ(form.pChoice2->geometry(), QRect(200, stage.top + 60, 400, 50));
                EXPECT_EQ(form.pChoice3->geometry(), QRect(300, stage.top + 170, 200, 50));
                EXPECT_EQ(form.cPlayers->isVisible(), stage.several);
                EXPECT_EQ(form.lPlayers->isVisible(), stage.several);
                EXPECT_FALSE(form.pEditor->isVisible());
                ClickOn(form.pX);
            }
        });
        c_Menu(form).Choose();
    }
}

TEST_F(MenuTest, BackWipesTheGlidedButtonAway) {
    const QImage ground = gBack->HDC(0)->Image();
    bool back = false;
    Robot robot([&] {
        if (form.pChoice3->isVisible()) {
            EXPECT_NE(form.Dc()->Pixel(400, 110), gBack->HDC(0)->Pixel(400, 110));
            ClickOn(form.pChoice3);
            back = true;
        } else if (back) {
            const QRect below(0, 90, 800, 510);
            EXPECT_EQ(form.Dc()->Image().copy(below), ground.copy(below));
            ClickOn(form.pX);
        } else {
            ClickOn(form.pSingle);
        }
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
    const auto box = [&form](const char* name) {
        return form.findChild<toolkit::PictureBox*>(QLatin1String(name));
    };
    ASSERT_TRUE(box("pSize100") && box("pSize150") && box("pSize200"));
    EXPECT_FALSE(box("pSize300"));
    EXPECT_EQ(box("pSize150")->accessibleName(), "Window size 150 %");
    EXPECT_NE(box("pSize100")->accessibleDescription(), box("pSize150")->accessibleDescription());

    ClickOn(box("pSize150"));
    QTest::keyClick(box("pSize200"), Qt::Key_Space);
    sizes.Step(1);
    sizes.Step(-1); // there is none
    ASSERT_EQ(chosen.size(), 3);
    EXPECT_EQ(chosen[0][0], 150);
    EXPECT_EQ(chosen[1][0], 200);
    EXPECT_EQ(chosen[2][0], 150);
    sizes.Hide();
    EXPECT_FALSE(box("pSize150")->isVisible());
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
