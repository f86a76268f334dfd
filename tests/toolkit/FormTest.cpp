#include "toolkit/Form.h"
#include "tests/OnStage.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/Mous.h"
#include "toolkit/Screen.h"
#include "toolkit/c_PicButton.h"

#include <QAccessible>
#include <QApplication>
#include <QCursor>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

/// A form with three buttons below each other.
class Forms : public testing::Test {
protected:
    Forms() {
        for (int i = 0; i < 3; ++i) {
            mBoxes[i] = new PictureBox(&mForm, QStringLiteral("p%1").arg(i), QSize(50, 20));
            mBoxes[i]->MoveTo(10, 10 + 30 * i);
            mButtons[i].Create(mBoxes[i], QStringLiteral("Button %1").arg(i));
            QObject::connect(&mButtons[i], &c_PicButton::Clicked, [this, i] { mPressed << i; });
        }
        mForm.ShowInPlace();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Stage::Get()));
    }

    void Key(Qt::Key key) {
        QTest::qWait(2); // at the same millisecond it would be a repeat
        QTest::keyClick(StageWindow(), key);
    }

    Form mForm{"f_Test", QSize(200, 100)};
    PictureBox* mBoxes[3];
    c_PicButton mButtons[3];
    QList<int> mPressed;
};

TEST_F(Forms, AreWalkedThroughByTabAndArrows) {
    EXPECT_EQ(mForm.focusWidget(), mBoxes[0]);
    QTest::mouseClick(StageWindow(), Qt::LeftButton, {},
                      OnStage(mForm, mBoxes[2]->Place().center()));
    // The first key after the mouse only shows where the focus is.
    const std::pair<Qt::Key, int> steps[] = {
        {Qt::Key_Tab, 2}, {Qt::Key_Up, 1},      {Qt::Key_Right, 2}, {Qt::Key_Left, 1},
        {Qt::Key_Up, 0},  {Qt::Key_Backtab, 2}, {Qt::Key_Down, 0},  {Qt::Key_Tab, 1}};
    for (const auto& [key, box] : steps) {
        const QImage before = mBoxes[box]->grab().toImage();
        Key(key);
        EXPECT_EQ(QApplication::focusWidget(), mBoxes[box]);
        EXPECT_NE(mBoxes[box]->grab().toImage(), before) << "no frame to be seen";
    }
}

TEST_F(Forms, PressTheFocusedButtonOnceAKeyUntilItHides) {
    mBoxes[1]->setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_A})
        Key(key);
    mBoxes[1]->hide();
    EXPECT_TRUE(mForm.hasFocus());
    // The keyboard focus goes to the next button, but not the second half of a double press.
    EXPECT_TRUE(QTest::qWaitFor([this] { return mBoxes[0]->hasFocus(); }));
    Key(Qt::Key_Return);
    mBoxes[1]->Activate();
    EXPECT_EQ(mPressed, (QList<int>{1, 1, 1}));
}

TEST_F(Forms, AreDraggedAboutTheStageByAnyPointButTheirButtons) {
    mForm.MoveTo(QPoint(300, 200));
    const std::tuple<QPoint, QPoint, QPoint> cases[] = {
        {{150, 50}, {2, 1}, {300, 200}}, // no drag yet
        {{150, 50}, {40, 30}, {340, 230}},
        {{20, 15}, {40, 30}, {340, 230}},
        {{150, 50}, {400, 300}, {600, 500}}};
    for (const auto& [grip, way, end] : cases) {
        const QPoint start = OnStage(mForm, grip);
        const auto move = [](QPoint to) {
            QCursor::setPos(Stage::Get().mapToGlobal(to));
            QTest::mouseMove(StageWindow(), to);
        };
        move(start);
        QTest::mousePress(StageWindow(), Qt::LeftButton, {}, start);
        move(start + way);
        move(start + way + way);
        QTest::mouseRelease(StageWindow(), Qt::LeftButton, {}, start + way);
        EXPECT_EQ(PlaceOf(mForm).topLeft(), end);
    }
}

TEST_F(Forms, GiveTheKeysToTheOneInFrontAndTakeThemBack) {
    mBoxes[1]->setFocus();
    Form modal("f_Modal", QSize(300, 100));
    Form player("f_OnTop", QSize(80, 40));
    SetTopMost(&player, true);
    player.Appear();
    modal.SetModal();
    PictureBox box(&modal, "pBox", QSize(50, 20));
    box.SetButton(1);
    modal.ShowInPlace();
    EXPECT_TRUE(box.hasFocus());
    EXPECT_FALSE(mBoxes[1]->TakesInput());
    EXPECT_TRUE(player.isEnabled()) << "it lies in front";
    mBoxes[1]->Activate();
    EXPECT_TRUE(mPressed.isEmpty());
    Key(Qt::Key_F6);
    EXPECT_TRUE(player.hasFocus());
    Key(Qt::Key_F6);
    EXPECT_TRUE(box.hasFocus());
    modal.hide();
    player.hide();
    EXPECT_TRUE(mBoxes[1]->hasFocus());
    EXPECT_TRUE(mBoxes[1]->TakesInput());
}

TEST(Screens, CloseByTheirButtonByEscapeAndByTheDesktop) {
    const PictureFolder folder;
    QImage skin(30, 60, QImage::Format_RGB888);
    skin.fill(Qt::red);
    for (const char* name : {"Images/X.bmp", "Images/bMin.bmp"})
        folder.Save(name, skin);
    Screen screen("f_Screen");
    WindowButtons buttons(screen);
    QSignalSpy clicks(&buttons.bX, &c_SurfButton::Clicked);
    screen.ShowInPlace();
    QAccessible::queryAccessibleInterface(screen.pX)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    QTest::keyClick(StageWindow(), Qt::Key_Escape);
    EXPECT_FALSE(Stage::Get().close());
    QApplication::processEvents();
    EXPECT_EQ(clicks.size(), 3);
}

} // namespace
