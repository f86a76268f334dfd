#include "toolkit/VolumeBox.h"

#include "platform/Volume.h"
#include "tests/OnStage.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/Form.h"
#include "toolkit/Picture.h"

#include <QAccessible>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;
using platform::HeardVolume;
using platform::Volume;

/// A form with a volume box and a text box.
class VolumeOnForm : public testing::Test {
protected:
    VolumeOnForm() {
        mFolder.Save("Images/bVolume.bmp", PlainSkin(QSize(76, 24)).load());
        Put(*mText, QRect(100, 100, 100, 30));
        mBox.Draw();
        mForm.ShowInPlace();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Stage::Get()));
        Volume::Get().SetPercent(50);
    }
    ~VolumeOnForm() override { Volume::Get().SetPercent(100); }

    QPoint At(int x) const { return OnStage(mForm, mBox.Place().topLeft() + QPoint(x, 11)); }
    void Type(const QString& text) {
        for (const QChar sign : text) {
            QTest::qWait(2); // at the same millisecond it would be a repeat
            QTest::sendKeyEvent(QTest::Click, StageWindow(), Qt::Key(sign.toUpper().unicode()),
                                sign, {});
        }
    }

    const PictureFolder mFolder;
    Form mForm{"f_Test"};
    VolumeBox& mBox = *new VolumeBox(&mForm);
    QLineEdit* mText = new QLineEdit(&mForm);
};

TEST_F(VolumeOnForm, KeysChangeItAndAreTextInATextBox) {
    mBox.setFocus();
    const std::pair<const char*, int> keys[] = {{"+", 60}, {"=", 70}, {"-", 60}, {"m", 0},
                                                {"M", 60}, {" ", 0},  {" ", 60}};
    for (const auto& [text, heard] : keys) {
        Type(text);
        EXPECT_EQ(HeardVolume(), heard) << text;
    }
    QTest::keyClick(StageWindow(), Qt::Key_Right);
    mText->setFocus();
    Type("+=-mM");
    EXPECT_EQ(mText->text(), "+=-mM");
    EXPECT_EQ(HeardVolume(), 70);
}

TEST_F(VolumeOnForm, TheMouseMutesTurnsAndDraws) {
    QWindow* stage = StageWindow();
    const QImage before = mBox.grab().toImage();
    QTest::mouseClick(stage, Qt::LeftButton, {}, At(15));
    EXPECT_EQ(HeardVolume(), 0);
    EXPECT_NE(mBox.grab().toImage(), before);
    Drag(At(15), At(-40));
    EXPECT_EQ(HeardVolume(), 0) << "released elsewhere";
    QTest::mousePress(stage, Qt::LeftButton, {}, At(51));
    EXPECT_NEAR(HeardVolume(), 50, 4);
    QTest::mouseMove(stage, At(200));
    EXPECT_EQ(HeardVolume(), 100);
    QTest::mouseRelease(stage, Qt::LeftButton, {}, At(200));
    for (const int turn : {-240, 120, -60, -60}) {
        QWheelEvent wheel(QPointF(15, 11), QPointF(), {}, QPoint(0, turn), {}, {}, {}, false);
        QCoreApplication::sendEvent(&mBox, &wheel);
    }
    EXPECT_EQ(HeardVolume(), 80);
}

TEST_F(VolumeOnForm, IsTurnedAndPressedByScreenReaders) {
    QAccessibleInterface* slider = QAccessible::queryAccessibleInterface(&mBox);
    slider->valueInterface()->setCurrentValue(30);
    EXPECT_EQ(HeardVolume(), 30);
    slider->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(slider->valueInterface()->currentValue(), 0);
}

} // namespace
