#include "tests/toolkit/Pictures.h"
#include "toolkit/Form.h"
#include "toolkit/c_PicButton.h"
#include "toolkit/c_SurfButton.h"

#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace {

using namespace toolkit;

constexpr QSize kFrame(40, 21);
constexpr QRect kHole(0, 0, 10, 21); // of each frame, transparent
constexpr QPoint kBoxPlace(31, 17);
constexpr ColorRef kFrames[] = {Rgb(0, 0, 200), Rgb(0, 200, 0), Rgb(200, 0, 0)};
const QString kSkin = QStringLiteral("Images\\Skin.bmp");

// Points in the box.
constexpr QPoint kShape(20, 10);
constexpr QPoint kInHole(5, 10);
constexpr QPoint kBeside(-4, 10);
constexpr QPoint kBelow(20, 24);
constexpr QPoint kFarAway(150, 70);

enum class Act {
    Move,
    Press,
    Release,
    Hide,
    Show,
    KeyDown,
    KeyRepeat,
    KeyRepeatInTwo,
    KeyUp,
    LoseKeys
};

constexpr int kPressed = 2; // among the looks

struct Step {
    Act act;
    QPoint at;
    int look;
    int clicks;
};

/// A form with a box in which a button is tried with a real pointer.
class Buttons : public testing::TestWithParam<double> {
protected:
    Buttons() {
        Scribble(*mForm.Dc());
        mBox.move(kBoxPlace);
        mForm.ShowInPlace();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mForm));
        Do(Act::Move, kFarAway);
    }

    void Do(Act act, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
        if (act == Act::Hide || act == Act::Show)
            return mBox.setVisible(act == Act::Show);
        if (act >= Act::KeyDown)
            return DoWithKeys(act);
        QWindow* window = mForm.windowHandle();
        QTest::mouseMove(window, kBoxPlace + at);
        if (act == Act::Press)
            QTest::mousePress(window, button, Qt::NoModifier, kBoxPlace + at);
        if (act == Act::Release)
            QTest::mouseRelease(window, button, Qt::NoModifier, kBoxPlace + at);
    }

    void DoWithKeys(Act act) {
        if (act == Act::LoseKeys)
            return mBox.clearFocus();
        if (act == Act::KeyDown) {
            mBox.clearFocus(); // forgets that it took the keys over when it was shown again
            mBox.setFocus();
        }
        if (act == Act::KeyRepeatInTwo)
            SendKey(QEvent::KeyRelease);
        SendKey(act == Act::KeyUp ? QEvent::KeyRelease : QEvent::KeyPress, act == Act::KeyRepeat);
        mTime += 40;
        if (act == Act::KeyRepeatInTwo)
            QTest::qWait(40); // longer than a repeat is waited for
        EXPECT_TRUE(act != Act::KeyUp || QTest::qWaitFor([this] { return Look() != kPressed; }));
    }

    void SendKey(QEvent::Type type, bool repeats = false) {
        QKeyEvent event(type, mKey, Qt::NoModifier, QString(), repeats);
        event.setTimestamp(mTime);
        QApplication::sendEvent(mForm.focusWidget() ? mForm.focusWidget() : &mForm, &event);
    }

    /// The button by each of the keys that press it.
    template <typename Button> void FollowKeys(Button& button) {
        using enum Act;
        const struct {
            const char* rule;
            std::vector<Step> steps;
        } cases[] = {
            {"pressed while held",
             {{KeyDown, {}, 2, 1},
              {KeyRepeat, {}, 2, 1},
              {KeyRepeatInTwo, {}, 2, 1},
              {KeyUp, {}, 0, 1}}},
            {"under the pointer", {{Move, kShape, 1, 0}, {KeyDown, {}, 2, 1}, {KeyUp, {}, 1, 1}}},
            {"the pointer leaves meanwhile",
             {{Move, kShape, 1, 0},
              {KeyDown, {}, 2, 1},
              {Move, kFarAway, 2, 1},
              {KeyUp, {}, 0, 1}}},
            {"the keys go elsewhere",
             {{KeyDown, {}, 2, 1}, {LoseKeys, {}, 0, 1}, {KeyUp, {}, 0, 1}}},
            {"hidden by its click",
             {{KeyDown, {}, 2, 1}, {Hide, {}, 0, 1}, {KeyUp, {}, 0, 1}, {Show, {}, 0, 1}}},
            {"held before it came", {{KeyRepeat, {}, 0, 0}, {KeyUp, {}, 0, 0}}},
        };
        for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            mKey = key;
            for (const auto& c : cases) {
                const testing::ScopedTrace trace(__FILE__, __LINE__, c.rule);
                Do(Move, kFarAway);
                Follow(button, c.steps);
            }
        }
    }

    template <typename Button>
    void Follow(Button& button, const std::vector<Step>& steps,
                Qt::MouseButton mouse = Qt::LeftButton) {
        QSignalSpy clicks(&button, &Button::Clicked);
        int number = 0;
        for (const Step& step : steps) {
            ++number;
            Do(step.act, step.at, mouse);
            EXPECT_EQ(Look(), step.look) << "after step " << number;
            EXPECT_EQ(clicks.size(), step.clicks) << "after step " << number;
        }
    }

    virtual int Look() const = 0;
    ColorRef At(int x, int y) const { return mBox.Picture().Pixel(x, y); }

    int mKey = 0;
    quint64 mTime = 1;
    AtRatio mRatio{GetParam()};
    Form mForm{QStringLiteral("f_Test"), QSize(200, 100)};
    PictureBox mBox{&mForm, QStringLiteral("pTest"), kFrame};
};

class SurfButton : public Buttons {
protected:
    SurfButton() {
        QImage skin(kFrame.width(), 3 * kFrame.height(), QImage::Format_RGB888);
        for (int y = 0; y < skin.height(); ++y)
            for (int x = 0; x < skin.width(); ++x)
                skin.setPixelColor(
                    x, y, ToQColor(x < kHole.width() ? kBlack : kFrames[y / kFrame.height()]));
        mFolder.Save(QStringLiteral("Images/Skin.bmp"), skin);
        mButton.Create(&mBox, kSkin, QString());
    }

    int Look() const override {
        const auto* frame = std::ranges::find(kFrames, At(kShape.x(), kShape.y()));
        return frame == std::end(kFrames) ? -1 : static_cast<int>(frame - kFrames);
    }

    PictureFolder mFolder;
    c_SurfButton mButton;
};

class PicButton : public Buttons {
protected:
    PicButton() { mButton.Create(&mBox, QString()); }

    int Look() const override {
        // The first of the gradient's colours tells the looks of the blue scheme apart.
        const RgbParts parts = SplitRgb(At(3, 3));
        return parts.red > 100 ? 1 : parts.blue > 150 ? 0 : 2;
    }

    c_PicButton mButton;
};

INSTANTIATE_TEST_SUITE_P(Ratio, SurfButton, testing::Values(1, 1.5, 2));
INSTANTIATE_TEST_SUITE_P(Ratio, PicButton, testing::Values(1, 2));

using enum Act;

TEST_P(SurfButton, FollowsThePointerOnItsShape) {
    const struct {
        const char* rule;
        std::vector<Step> steps;
    } cases[] = {
        {"hovers on its shape only",
         {{Move, kShape, 1, 0}, {Move, kInHole, 0, 0}, {Move, kShape, 1, 0}, {Move, kBelow, 0, 0}}},
        {"clicks when released on it",
         {{Press, kShape, 2, 0}, {Move, {25, 12}, 2, 0}, {Release, kShape, 0, 1}}},
        {"released beside",
         {{Press, kShape, 2, 0}, {Move, kBeside, 2, 0}, {Release, kBeside, 0, 0}}},
        {"released below", {{Press, kShape, 2, 0}, {Move, kBelow, 2, 0}, {Release, kBelow, 0, 0}}},
        {"released in the hole",
         {{Press, kShape, 2, 0}, {Move, kInHole, 0, 0}, {Release, kInHole, 0, 0}}},
        {"pressed in the hole", {{Press, kInHole, 0, 0}, {Release, kInHole, 0, 0}}},
        {"clicks when back from beside",
         {{Press, kShape, 2, 0},
          {Move, kBeside, 2, 0},
          {Move, kShape, 2, 0},
          {Release, kShape, 0, 1}}},
        {"clicks when back from the hole",
         {{Press, kShape, 2, 0},
          {Move, kInHole, 0, 0},
          {Move, kShape, 1, 0},
          {Release, kShape, 0, 1}}},
        {"forgets the press that it was hidden under",
         {{Press, kShape, 2, 0},
          {Hide, {}, 0, 0},
          {Release, kShape, 0, 0},
          {Show, {}, 0, 0},
          {Move, kInHole, 0, 0},
          {Move, kShape, 1, 0}}},
    };
    for (const Qt::MouseButton mouse : {Qt::LeftButton, Qt::RightButton}) {
        for (const auto& c : cases) {
            const testing::ScopedTrace trace(__FILE__, __LINE__, c.rule);
            Do(Move, kFarAway);
            mButton.Refresh(c_SurfButton::Normal);
            Follow(mButton, c.steps, mouse);
        }
    }
}

TEST_P(SurfButton, ShowsThatAKeyPressesIt) {
    mButton.Refresh();
    FollowKeys(mButton);
}

TEST_P(PicButton, ShowsThatAKeyPressesIt) { FollowKeys(mButton); }

TEST_P(SurfButton, IgnoresTheMouseAndDrawsNothingWhileDisabled) {
    mButton.mDisabled = true;
    mButton.Refresh(c_SurfButton::Pressed);
    QSignalSpy clicks(&mButton, &c_SurfButton::Clicked);
    Follow(mButton, {{Move, kShape, -1, 0}, {Press, kShape, -1, 0}, {Release, kShape, -1, 0}});
    mBox.Activate();
    EXPECT_EQ(clicks.size(), 0);
}

TEST_P(SurfButton, TouchesWhereTheFirstFrameIsNotBlack) {
    EXPECT_EQ(mBox.size(), kFrame);
    const struct {
        double x, y;
        bool touches;
    } cases[] = {{10, 0, true},   {39, 20, true},  {9.5, 5, true}, {9.4, 5, false}, {40, 5, false},
                 {20, 21, false}, {20, 40, false}, {-1, 5, false}, {20, -1, false}};
    for (const auto& c : cases)
        EXPECT_EQ(mButton.IsTouching(c.x, c.y), c.touches) << c.x << ", " << c.y;
}

TEST_P(SurfButton, ShowsTheFormThroughItsHole) {
    mButton.Refresh();
    mForm.Dc()->Fill(QRect(0, 0, 200, 100), Rgb(9, 8, 7));
    mButton.Refresh(c_SurfButton::Hover);
    for (int y = 0; y < kFrame.height(); ++y)
        for (int x = 0; x < kFrame.width(); ++x)
            ASSERT_EQ(At(x, y), kHole.contains(x, y) ? Rgb(9, 8, 7) : kFrames[1]) << x << ", " << y;
}

TEST_P(SurfButton, SharesItsSkinWithClones) {
    PictureBox second(&mForm, QStringLiteral("pSecond"), QSize(5, 5));
    second.move(100, 60);
    c_SurfButton clone;
    clone.Clone(&second, mButton, QString());
    EXPECT_EQ(second.size(), kFrame);
    clone.Refresh(c_SurfButton::Pressed);
    EXPECT_EQ(second.Picture().Pixel(20, 10), kFrames[2]);
    EXPECT_EQ(second.Picture().Pixel(5, 10), mForm.Dc()->Pixel(105, 70));

    mButton.Surfaces()->FreeSurfaces();
    clone.Refresh();
    EXPECT_EQ(second.Picture().Pixel(20, 10), mForm.Dc()->Pixel(120, 70));
    EXPECT_FALSE(clone.IsTouching(20, 10));
}

TEST_P(PicButton, ClicksWhereverItIsReleased) {
    Follow(mButton, {{Move, kInHole, 1, 0},
                     {Press, kInHole, 2, 0},
                     {Move, kShape, 2, 0},
                     {Release, kShape, 0, 1},
                     {Move, kInHole, 1, 1},
                     {Press, kShape, 2, 1},
                     {Move, kBeside, 0, 1},
                     {Move, kShape, 1, 1},
                     {Move, kBeside, 0, 1},
                     {Release, kBeside, 0, 2}});
}

} // namespace
