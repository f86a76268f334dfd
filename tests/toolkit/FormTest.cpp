#include "toolkit/Form.h"
#include "platform/Wait.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/Mous.h"
#include "toolkit/Screen.h"
#include "toolkit/c_PicButton.h"

#include <QAccessible>
#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

namespace {

using namespace toolkit;

/// A form with three buttons below each other.
class Forms : public testing::Test {
protected:
    Forms() {
        for (int i = 0; i < 3; ++i) {
            mBoxes[i] = new PictureBox(&mForm, QStringLiteral("p%1").arg(i), QSize(50, 20));
            mBoxes[i]->move(10, 10 + 30 * i);
            mButtons[i].Create(mBoxes[i], QStringLiteral("Button %1").arg(i));
            mClicks[i] = std::make_unique<QSignalSpy>(&mButtons[i], &c_PicButton::Clicked);
        }
        mForm.ShowInPlace();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mForm));
    }

    void Key(Qt::Key key) { QTest::keyClick(mForm.windowHandle(), key); }

    Form mForm{QStringLiteral("f_Test"), QSize(200, 100)};
    PictureBox* mBoxes[3];
    c_PicButton mButtons[3];
    std::unique_ptr<QSignalSpy> mClicks[3];
    QSignalSpy mCloseRequests{&mForm, &Form::CloseRequested};
};

TEST_F(Forms, HandARequestToCloseToTheScreen) {
    EXPECT_FALSE(mForm.close());
    EXPECT_TRUE(mForm.isVisible());
    EXPECT_EQ(mCloseRequests.size(), 1);
    mBoxes[1]->setFocus();
    Key(Qt::Key_Escape);
    EXPECT_EQ(mCloseRequests.size(), 2);

    const platform::QuitWatch watch;
    QTimer::singleShot(0, &mForm, [this] {
        platform::RequestQuit();
        EXPECT_TRUE(mForm.close());
    });
    QApplication::exec();
    EXPECT_EQ(mCloseRequests.size(), 2);
}

TEST_F(Forms, AreWalkedThroughByTabAndArrows) {
    EXPECT_TRUE(mForm.hasFocus());
    struct Step {
        Qt::Key key;
        int box;
    };
    const Step steps[] = {{Qt::Key_Tab, 0},  {Qt::Key_Down, 1},    {Qt::Key_Right, 2},
                          {Qt::Key_Up, 1},   {Qt::Key_Backtab, 0}, {Qt::Key_Down, 1},
                          {Qt::Key_Left, 0}, {Qt::Key_Tab, 1}};
    for (const Step& step : steps) {
        const QImage before = mBoxes[step.box]->grab().toImage();
        Key(step.key);
        EXPECT_EQ(QApplication::focusWidget(), mBoxes[step.box]);
        EXPECT_NE(mBoxes[step.box]->grab().toImage(), before) << "no frame to be seen";
    }
}

TEST_F(Forms, PressTheFocusedButtonOnceAKey) {
    int clicks = 0;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        mBoxes[1]->setFocus();
        Key(key);
        EXPECT_EQ(mClicks[1]->size(), ++clicks);
    }
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(mBoxes[1], &repeated);
    Key(Qt::Key_A);
    EXPECT_EQ(mClicks[1]->size(), clicks);
    EXPECT_EQ(mClicks[0]->size() + mClicks[2]->size(), 0);
}

TEST_F(Forms, TakeTheFocusOfAButtonThatHides) {
    QObject::connect(&mButtons[0], &c_PicButton::Clicked, mBoxes[0], &QWidget::hide);
    mBoxes[0]->setFocus();
    Key(Qt::Key_Return);
    Key(Qt::Key_Return);
    EXPECT_TRUE(mForm.hasFocus());
    EXPECT_EQ(mClicks[0]->size(), 1);
    EXPECT_EQ(mClicks[1]->size(), 0);
    mBoxes[0]->Activate();
    EXPECT_EQ(mClicks[0]->size(), 1) << "pressed while hidden";
}

TEST_F(Forms, AreDraggedByAnyPointButTheirButtons) {
    mForm.move(300, 200);
    QWindow* window = mForm.windowHandle();
    for (const QPoint grip : {QPoint(150, 50), QPoint(120, 20)}) {
        const QPoint start = mForm.pos();
        QCursor::setPos(start + grip);
        QTest::mousePress(window, Qt::LeftButton, {}, grip);
        QTest::mouseMove(window, grip + QPoint(40, 30));
        EXPECT_EQ(mForm.pos(), start + QPoint(40, 30));
        QTest::mouseMove(window, grip + QPoint(0, -5));
        EXPECT_EQ(mForm.pos(), start + QPoint(40, 25));
        QTest::mouseRelease(window, Qt::LeftButton, {}, grip);
    }
    const QPoint end = mForm.pos();
    QTest::mousePress(window, Qt::LeftButton, {}, QPoint(20, 15));
    QTest::mouseMove(window, QPoint(120, 60));
    QTest::mouseRelease(window, Qt::LeftButton, {}, QPoint(120, 60));
    EXPECT_EQ(mForm.pos(), end);
}

TEST_F(Forms, GoToTheCornerWhenTheyAreKeptOnTop) {
    mForm.move(300, 200);
    for (const bool onTop : {true, false}) {
        SetTopMost(&mForm, onTop);
        EXPECT_EQ(mForm.pos(), QPoint(0, 0));
        EXPECT_EQ(mForm.windowFlags().testFlag(Qt::WindowStaysOnTopHint), onTop);
        EXPECT_TRUE(mForm.isVisible());
        mForm.move(9, 9);
    }
}

TEST_F(Forms, TellScreenReadersOfTheirButtons) {
    PictureBox clock(&mForm, QStringLiteral("pClock"), QSize(20, 20));
    clock.setAccessibleName(QStringLiteral("Clock"));
    QAccessibleInterface* box = QAccessible::queryAccessibleInterface(&clock);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->role(), QAccessible::Graphic);
    EXPECT_EQ(box->text(QAccessible::Name), QStringLiteral("Clock"));
    EXPECT_FALSE(
        box->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    c_PicButton button;
    button.Create(&clock, QStringLiteral("Stop"));
    EXPECT_EQ(box->role(), QAccessible::Button);
    EXPECT_EQ(box->text(QAccessible::Name), QStringLiteral("Stop"));

    QSignalSpy clicks(&button, &c_PicButton::Clicked);
    box->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.size(), 0) << "not shown yet";
    clock.show();
    box->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.size(), 1);
}

TEST(Screens, FollowEachOtherInPlace) {
    Form first(QStringLiteral("f_First"));
    Form second(QStringLiteral("f_Second"));
    Form small(QStringLiteral("f_Small"), QSize(400, 200));
    first.ShowInPlace();
    first.move(37, 53);
    first.hide();
    second.ShowInPlace();
    EXPECT_EQ(second.pos(), QPoint(37, 53));
    small.ShowInPlace();
    EXPECT_EQ(small.pos(), QPoint(237, 253));
    small.move(0, 0);
    small.hide();
    first.ShowInPlace();
    EXPECT_EQ(first.pos(), QPoint(37, 53));
    first.MoveToCorner();
    second.hide();
    first.hide();
    second.ShowInPlace();
    EXPECT_EQ(second.pos(), QPoint(0, 0));
}

TEST(Screens, CloseByTheirCloseButton) {
    const PictureFolder folder;
    QImage skin(30, 60, QImage::Format_RGB888);
    skin.fill(Qt::red);
    for (const char* name : {"Images/X.bmp", "Images/bMin.bmp"})
        folder.Save(QString::fromLatin1(name), skin);
    Screen screen(QStringLiteral("f_Screen"));
    WindowButtons buttons(screen);
    QSignalSpy clicks(&buttons.bX, &c_SurfButton::Clicked);
    screen.show();
    screen.close();
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_EQ(screen.pX->geometry(), QRect(770, 0, 30, 20));
    QAccessibleInterface* close = QAccessible::queryAccessibleInterface(screen.pX);
    EXPECT_EQ(close->text(QAccessible::Name), QStringLiteral("Close"));
    EXPECT_EQ(close->role(), QAccessible::Button);
    close->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.size(), 2);
}

} // namespace
