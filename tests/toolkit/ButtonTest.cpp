#include "tests/Fingers.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/Form.h"
#include "toolkit/c_PicButton.h"
#include "toolkit/c_SurfButton.h"

#include <QMap>
#include <QPainter>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

constexpr QSize kFrame(40, 21);
constexpr QRect kHole(0, 0, 10, 21); // of each frame, transparent
constexpr QPoint kBoxPlace(31, 17);
constexpr ColorRef kFrames[] = {Rgb(0, 0, 200), Rgb(0, 200, 0), Rgb(200, 0, 0)};

/// Points in the box.
const QMap<QString, QPoint> kPlaces = {{"shape", {20, 10}},
                                       {"hole", {5, 10}},
                                       {"beside", {-4, 10}},
                                       {"below", {20, 24}},
                                       {"away", {150, 70}}};

/// A form with a box in which a button is tried with a real pointer and real keys.
class Buttons : public testing::TestWithParam<double> {
protected:
    Buttons() {
        Scribble(*mForm.Dc());
        mBox.MoveTo(kBoxPlace.x(), kBoxPlace.y());
        mForm.ShowInPlace();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Stage::Get()));
    }

    /// Takes the pointer to the places named and acts there. After each step comes the expected
    /// look (0 normal, 1 hovered, 2 pressed, - none of these), and "!" if the button clicked.
    void Follow(const QString& steps) {
        QStringList seen;
        Do("away");
        for (const QString& step : steps.split(", ")) {
            const QString act = step.section(u' ', 0, 0);
            mClicks.clear();
            Do(act);
            seen << act + u' ' + Look() + mClicks;
        }
        EXPECT_EQ(seen.join(", ").toStdString(), steps.toStdString());
    }

    void Do(const QString& act) {
        if (kPlaces.contains(act)) {
            mFingers.mAt = OnStage(mForm, kBoxPlace + kPlaces[act]);
            QTest::mouseMove(StageWindow(), mFingers.mAt);
        } else if (act == "press") {
            mFingers.Press(mMouse);
        } else if (act == "release") {
            mFingers.Release(mMouse);
            mFingers.mTime += 1000;
        } else if (act == "hide" || act == "show") {
            mBox.setVisible(act == "show");
        } else if (act == "leave") {
            mBox.clearFocus();
        } else if (act == "up") {
            mFingers.Up(mKey);
            mFingers.mTime += 1000;
            EXPECT_TRUE(QTest::qWaitFor([this] { return Look() != u'2'; }));
        } else if (act == "again") { // as a repeat comes on some systems
            mFingers.Up(mKey);
            mFingers.Down(mKey);
            QTest::qWait(40); // longer than a repeat is waited for
        } else {
            mBox.setFocus();
            mFingers.Down(mKey, act == "repeat");
        }
    }

    /// Tries each of the keys that press a button.
    void FollowKeys() {
        for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            mKey = key;
            for (const char* steps : {"key 2!, repeat 2, again 2, up 0", "shape 1, key 2!, up 1",
                                      "shape 1, key 2!, away 2, up 0", "key 2!, leave 0, up 0",
                                      "key 2!, hide 0, up 0, show 0", "repeat 0, up 0"})
                Follow(steps);
        }
    }

    virtual QChar Look() const = 0;
    ColorRef At(int x, int y) const { return mBox.Picture().Pixel(x, y); }

    Qt::MouseButton mMouse = Qt::LeftButton;
    int mKey = 0;
    Fingers mFingers;
    QString mClicks;
    AtRatio mRatio{GetParam()};
    Form mForm{"f_Test", QSize(200, 100)};
    PictureBox mBox{&mForm, "pTest", kFrame};
};

class SurfButton : public Buttons {
protected:
    SurfButton() {
        QImage skin(kFrame.width(), 3 * kFrame.height(), QImage::Format_RGB888);
        skin.fill(Qt::black);
        for (int frame = 0; frame < 3; ++frame)
            QPainter(&skin).fillRect(kHole.width(), frame * kFrame.height(), kFrame.width(),
                                     kFrame.height(), ToQColor(kFrames[frame]));
        mFolder.Save("Images/Skin.bmp", skin);
        mBox.SetBoxSize(QSize(5, 5)); // gets the skin's
        mButton.Create(&mBox, "Images\\Skin.bmp", QString());
        QObject::connect(&mButton, &c_SurfButton::Clicked, [this] { mClicks += u'!'; });
        mButton.Refresh();
    }

    QChar Look() const override {
        const auto* frame = std::ranges::find(kFrames, At(20, 10));
        return frame == std::end(kFrames) ? u'-' : u"012"[frame - kFrames];
    }

    PictureFolder mFolder;
    c_SurfButton mButton;
};

class PicButton : public Buttons {
protected:
    PicButton() {
        mButton.Create(&mBox, QString());
        QObject::connect(&mButton, &c_PicButton::Clicked, [this] { mClicks += u'!'; });
    }

    QChar Look() const override {
        // Where the gradient begins, below the glass, its colour tells the blue looks apart.
        const RgbParts parts = SplitRgb(At(4, 14));
        return parts.red > 60 ? u'1' : parts.blue > 150 ? u'0' : u'2';
    }

    c_PicButton mButton;
};

INSTANTIATE_TEST_SUITE_P(Ratio, SurfButton, testing::Values(1, 1.5, 2));
INSTANTIATE_TEST_SUITE_P(Ratio, PicButton, testing::Values(1, 2));

TEST_P(SurfButton, FollowsThePointerOnItsShapeAndTheKeys) {
    for (const Qt::MouseButton mouse : {Qt::LeftButton, Qt::RightButton}) {
        mMouse = mouse;
        for (const char* steps :
             {"shape 1, hole 0, shape 1, below 0", "hole 0, press 0, release 0",
              "shape 1, press 2, beside 2, release 0", "shape 1, press 2, below 2, release 0",
              "shape 1, press 2, hole 0, release 0",
              "shape 1, press 2, beside 2, shape 2, release 0!",
              "shape 1, press 2, hole 0, shape 1, release 0!",
              "shape 1, press 2, hide 0, release 0, show 0, hole 0, shape 1"}) {
            mButton.Refresh(c_SurfButton::Normal);
            Follow(steps);
        }
    }
    mButton.Refresh(c_SurfButton::Normal);
    FollowKeys();
}

TEST_P(PicButton, FollowsThePointerAndTheKeys) {
    Follow("hole 1, press 2, shape 2, release 0!, hole 1, shape 1, press 2, beside 0, shape 1, "
           "beside 0, release 0!");
    FollowKeys();
}

TEST_P(SurfButton, DoesNothingWhileDisabled) {
    mButton.mDisabled = true;
    mButton.Refresh(c_SurfButton::Pressed);
    Follow("shape 0, press 0, release 0");
}

TEST_P(SurfButton, TouchesWhereTheFirstFrameIsNotBlack) {
    EXPECT_EQ(mBox.size(), kFrame);
    const std::pair<QPointF, bool> cases[] = {
        {{10, 0}, true},  {{39, 20}, true},  {{9.5, 5}, true}, {{9.4, 5}, false},
        {{40, 5}, false}, {{20, 21}, false}, {{-1, 5}, false}, {{20, -1}, false}};
    for (const auto& [at, touches] : cases)
        EXPECT_EQ(mButton.IsTouching(at.x(), at.y()), touches) << at.x() << ", " << at.y();
}

TEST_P(SurfButton, ShowsTheFormThroughItsHole) {
    mForm.Dc()->Fill(QRect(0, 0, 200, 100), Rgb(9, 8, 7));
    mButton.Refresh(c_SurfButton::Hover);
    for (int y = 0; y < kFrame.height(); ++y)
        for (int x = 0; x < kFrame.width(); ++x)
            ASSERT_EQ(At(x, y), kHole.contains(x, y) ? Rgb(9, 8, 7) : kFrames[1]) << x << ", " << y;
}

} // namespace
