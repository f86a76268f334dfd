#include "toolkit/Form.h"
#include "tests/OnStage.h"
#include "toolkit/Mous.h"
#include "toolkit/PictureBox.h"

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

/// A form with three buttons, the second one farther down and aside, the third one below the first.
class Forms : public testing::Test {
protected:
    Forms() {
        for (int i = 0; i < 3; ++i) {
            mBoxes[i] = new PictureBox(&mForm, QStringLiteral("p%1").arg(i), QSize(50, 20));
            mBoxes[i]->MoveTo(10 + 70 * (i % 2), 10 + 30 * i);
            mBoxes[i]->SetButton(1);
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
};

TEST_F(Forms, AreWalkedThroughByTabAndArrows) {
    EXPECT_EQ(mForm.focusWidget(), mBoxes[0]);
    QTest::mouseClick(StageWindow(), Qt::LeftButton, {},
                      OnStage(mForm, mBoxes[2]->Place().center()));
    // The first key after the mouse only shows where the focus is.
    const std::pair<Qt::Key, int> steps[] = {
        {Qt::Key_Tab, 2}, {Qt::Key_Up, 0},   {Qt::Key_Right, 1},   {Qt::Key_Left, 0},
        {Qt::Key_Up, 2},  {Qt::Key_Down, 0}, {Qt::Key_Backtab, 2}, {Qt::Key_Tab, 0}};
    for (const auto& [key, box] : steps) {
        Key(key);
        EXPECT_EQ(QApplication::focusWidget(), mBoxes[box]) << key;
    }
}

TEST_F(Forms, AreDraggedAboutTheStageByAnyPointButTheirButtons) {
    mForm.MoveTo(QPoint(300, 200));
    const std::tuple<QPoint, QPoint, QPoint> cases[] = {
        {{150, 50}, {2, 1}, {300, 200}}, // no drag yet
        {{150, 50}, {80, 60}, {340, 230}},
        {{20, 15}, {40, 30}, {340, 230}},
        {{150, 50}, {800, 600}, {600, 500}}};
    for (const auto& [grip, way, end] : cases) {
        const QPoint start = OnStage(mForm, grip);
        Drag(start, start + way);
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
    Key(Qt::Key_F6);
    EXPECT_TRUE(player.hasFocus());
    Key(Qt::Key_F6);
    EXPECT_TRUE(box.hasFocus());
    modal.hide();
    player.hide();
    EXPECT_TRUE(mBoxes[1]->hasFocus());
    EXPECT_TRUE(mBoxes[1]->TakesInput());
}

} // namespace
