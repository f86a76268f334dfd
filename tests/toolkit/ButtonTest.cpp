#include "tests/toolkit/Pictures.h"
#include "toolkit/ApiDraw.h"
#include "toolkit/Form.h"
#include "toolkit/c_PicButton.h"
#include "toolkit/c_SurfButton.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>
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

enum class Act { Move, Press, Release, Hide, Show };

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
        QImage skin(kFrame.width(), 3 * kFrame.height(), QImage::Format_RGB888);
        for (int y = 0; y < skin.height(); ++y)
            for (int x = 0; x < skin.width(); ++x)
                skin.setPixelColor(
                    x, y, ToQColor(x < kHole.width() ? kBlack : kFrames[y / kFrame.height()]));
        mFolder.Save(QStringLiteral("Images/Skin.bmp"), skin);
        Scribble(*mForm.Dc());
        mBox.move(kBoxPlace);
        mForm.ShowInPlace();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mForm));
        QTest::mouseMove(mForm.windowHandle(), QPoint(190, 90));
    }

    void Do(Act act, QPoint at, Qt::MouseButton button) {
        QWindow* window = mForm.windowHandle();
        const QPoint place = kBoxPlace + at;
        if (act == Act::Move || act == Act::Press || act == Act::Release)
            QTest::mouseMove(window, place);
        switch (act) {
        case Act::Move:
            return;
        case Act::Press:
            return QTest::mousePress(window, button, Qt::NoModifier, place);
        case Act::Release:
            return QTest::mouseRelease(window, button, Qt::NoModifier, place);
        case Act::Hide:
            return mBox.hide();
        case Act::Show:
            return mBox.show();
        }
    }

    template <typename Button, typename LookOf>
    void Follow(Button& button, const std::vector<Step>& steps, LookOf look,
                Qt::MouseButton mouse = Qt::LeftButton) {
        QSignalSpy clicks(&button, &Button::Clicked);
        int number = 0;
        for (const Step& step : steps) {
            ++number;
            Do(step.act, step.at, mouse);
            EXPECT_EQ(look(), step.look) << "after step " << number;
            EXPECT_EQ(clicks.size(), step.clicks) << "after step " << number;
        }
    }

    void FollowSurf(const std::vector<Step>& steps, Qt::MouseButton mouse = Qt::LeftButton) {
        c_SurfButton button;
        button.Create(&mBox, kSkin, QString());
        button.Refresh();
        Follow(
            button, steps, [this] { return SurfLook(); }, mouse);
    }

    int SurfLook() const {
        const ColorRef color = mBox.Picture().Pixel(kShape.x(), kShape.y());
        for (int state = 0; state < 3; ++state)
            if (color == kFrames[state])
                return state;
        return -1;
    }

    AtRatio mRatio{GetParam()};
    PictureFolder mFolder;
    Form mForm{QStringLiteral("f_Test"), QSize(200, 100)};
    PictureBox mBox{&mForm, QStringLiteral("pTest"), kFrame};
};

class SurfButton : public Buttons {};
class PicButton : public Buttons {};

INSTANTIATE_TEST_SUITE_P(Ratio, SurfButton, testing::Values(1, 1.5, 2));
INSTANTIATE_TEST_SUITE_P(Ratio, PicButton, testing::Values(1, 2));

using enum Act;

TEST_P(SurfButton, HoversOnItsShapeOnly) {
    FollowSurf({{Move, kInHole, 0, 0},
                {Move, kShape, 1, 0},
                {Move, kInHole, 0, 0},
                {Move, kShape, 1, 0},
                {Move, kBeside, 0, 0},
                {Move, kShape, 1, 0},
                {Move, kBelow, 0, 0}});
}

TEST_P(SurfButton, ClicksWhenReleasedOnItsShape) {
    for (const Qt::MouseButton mouse : {Qt::LeftButton, Qt::RightButton})
        FollowSurf({{Press, kShape, 2, 0},
                    {Move, {25, 12}, 2, 0},
                    {Release, kShape, 0, 1},
                    {Press, kShape, 2, 1},
                    {Release, kShape, 0, 2}},
                   mouse);
}

TEST_P(SurfButton, DoesNotClickWhenReleasedOffItsShape) {
    for (const QPoint off : {kBeside, kBelow, QPoint(20, 50), QPoint(60, 10)})
        FollowSurf({{Press, kShape, 2, 0}, {Move, off, 2, 0}, {Release, off, 0, 0}});
    FollowSurf({{Press, kShape, 2, 0}, {Move, kInHole, 0, 0}, {Release, kInHole, 0, 0}});
    FollowSurf({{Press, kInHole, 0, 0}, {Release, kInHole, 0, 0}});
}

TEST_P(SurfButton, ClicksWhenThePointerCameBack) {
    FollowSurf({{Press, kShape, 2, 0},
                {Move, kBeside, 2, 0},
                {Move, kShape, 2, 0},
                {Move, kInHole, 0, 0},
                {Move, kShape, 1, 0},
                {Release, kShape, 0, 1}});
}

TEST_P(SurfButton, ForgetsThePressThatItWasHiddenUnder) {
    FollowSurf({{Press, kShape, 2, 0},
                {Hide, {}, 0, 0},
                {Release, kShape, 0, 0},
                {Show, {}, 0, 0},
                {Move, kInHole, 0, 0},
                {Move, kShape, 1, 0}});
}

TEST_P(SurfButton, ForgetsThePressThatItsFormWasHiddenUnder) {
    c_SurfButton button;
    button.Create(&mBox, kSkin, QString());
    Do(Press, kShape, Qt::LeftButton);
    EXPECT_EQ(SurfLook(), 2);
    mForm.hide();
    EXPECT_EQ(SurfLook(), 0);
    mForm.show();
    Do(Release, kInHole, Qt::LeftButton);
}

TEST_P(SurfButton, IgnoresTheMouseAndDrawsNothingWhileDisabled) {
    c_SurfButton button;
    button.Create(&mBox, kSkin, QString());
    button.mDisabled = true;
    button.Refresh(c_SurfButton::Pressed);
    const auto look = [this] { return SurfLook(); };
    Follow(button, {{Move, kShape, -1, 0}, {Press, kShape, -1, 0}, {Release, kShape, -1, 0}}, look);
    QSignalSpy clicks(&button, &c_SurfButton::Clicked);
    mBox.Activate();
    EXPECT_EQ(clicks.size(), 0);
    button.mDisabled = false;
    button.Refresh();
    EXPECT_EQ(SurfLook(), 0);
    Follow(button, {{Move, {22, 10}, 1, 0}}, look);
}

TEST_P(SurfButton, TouchesWhereTheFirstFrameIsNotBlack) {
    c_SurfButton button;
    button.Create(&mBox, kSkin, QString());
    EXPECT_EQ(mBox.size(), kFrame);
    struct Case {
        double x, y;
        bool touches;
    };
    const Case cases[] = {{10, 0, true},   {39, 20, true}, {9.5, 5, true},  {9.4, 5, false},
                          {9, 5, false},   {40, 5, false}, {20, 21, false}, {20, 40, false},
                          {20, 63, false}, {-1, 5, false}, {20, -1, false}};
    for (const Case& point : cases)
        EXPECT_EQ(button.IsTouching(point.x, point.y), point.touches) << point.x << ", " << point.y;
}

TEST_P(SurfButton, ShowsTheFormThroughItsHole) {
    c_SurfButton button;
    button.Create(&mBox, kSkin, QString());
    button.Refresh();
    mForm.Dc()->Fill(QRect(0, 0, 200, 100), Rgb(9, 8, 7));
    EXPECT_NE(mBox.Picture().Pixel(2, 2), Rgb(9, 8, 7));
    button.Refresh(c_SurfButton::Hover);
    for (int y = 0; y < kFrame.height(); ++y)
        for (int x = 0; x < kFrame.width(); ++x)
            ASSERT_EQ(mBox.Picture().Pixel(x, y), kHole.contains(x, y) ? Rgb(9, 8, 7) : kFrames[1])
                << x << ", " << y;
}

/// The picture with a caption in its middle, two pixels above the centre.
QImage WithCaption(Canvas picture, ColorRef color, ColorRef shadow) {
    const QString caption = QStringLiteral("Go");
    BeginDraw(&picture, Qt::SolidLine, kWhite, 1, kBlack, BkMode::Transparent);
    ShadowText(caption, color, shadow,
               static_cast<float>(picture.Width() / 2.0 - picture.TextWidth(caption) / 2),
               static_cast<float>(picture.Height() / 2.0 - picture.TextHeight() / 2 - 2), 2);
    EndDraw();
    return picture.Image();
}

TEST_P(SurfButton, ShowsANewCaptionWithTheNextRefresh) {
    c_SurfButton button;
    button.mCaptionMargin = 2;
    button.Create(&mBox, kSkin, QString());
    button.Refresh();
    const Canvas bare = mBox.Picture();
    button.SetCaption(QStringLiteral("Go"));
    EXPECT_EQ(mBox.Picture().Image(), bare.Image());
    button.Refresh();
    EXPECT_EQ(mBox.Picture().Image(), WithCaption(bare, kWhite, kBlack));
    EXPECT_NE(mBox.Picture().Image(), bare.Image());

    button.Refresh(c_SurfButton::Hover);
    button.SetCaption(QStringLiteral("Go"));
    EXPECT_EQ(mBox.Picture().Image(), WithCaption(bare, kWhite, kBlack));
}

TEST_P(SurfButton, SharesItsSkinWithClones) {
    c_SurfButton source;
    source.Create(&mBox, kSkin, QString());
    PictureBox second(&mForm, QStringLiteral("pSecond"), QSize(5, 5));
    second.move(100, 60);
    c_SurfButton clone;
    clone.Clone(&second, source, QString());
    EXPECT_EQ(second.size(), kFrame);
    clone.Refresh(c_SurfButton::Pressed);
    EXPECT_EQ(second.Picture().Pixel(20, 10), kFrames[2]);
    EXPECT_EQ(second.Picture().Pixel(5, 10), mForm.Dc()->Pixel(105, 70));

    source.Surfaces()->FreeSurfaces();
    clone.Refresh();
    EXPECT_EQ(second.Picture().Pixel(20, 10), mForm.Dc()->Pixel(120, 70));
    EXPECT_FALSE(clone.IsTouching(20, 10));
}

int PicLook(const PictureBox& box) {
    // The first of the gradient's colours tells the looks of the blue scheme apart.
    const RgbParts parts = SplitRgb(box.Picture().Pixel(3, 3));
    return parts.red > 100 ? 1 : parts.blue > 150 ? 0 : 2;
}

TEST_P(PicButton, ClicksWhereverItIsReleased) {
    c_PicButton button;
    button.Create(&mBox, QString());
    Follow(button,
           {{Move, kInHole, 1, 0},
            {Press, kInHole, 2, 0},
            {Move, kShape, 2, 0},
            {Release, kShape, 0, 1},
            {Move, kInHole, 1, 1},
            {Move, kBelow, 0, 1},
            {Press, kShape, 2, 1},
            {Move, kBeside, 0, 1},
            {Move, kShape, 1, 1},
            {Move, kBeside, 0, 1},
            {Release, kBeside, 0, 2}},
           [this] { return PicLook(mBox); });
}

TEST_P(PicButton, IsBevelledAroundAGradient) {
    c_PicButton button;
    button.SetColors(2, false);
    button.Create(&mBox, QString());
    const auto at = [this](int x, int y) { return mBox.Picture().Pixel(x, y); };
    const ColorRef light = Rgb(255, 220, 220);
    const ColorRef dark = Rgb(0, 0, 50);
    EXPECT_EQ(at(1, 10), light);
    EXPECT_EQ(at(20, 1), light);
    EXPECT_EQ(at(38, 10), dark);
    EXPECT_EQ(at(20, 19), dark);
    EXPECT_EQ(at(0, 0), mForm.Dc()->Pixel(kBoxPlace.x(), kBoxPlace.y())) << "corner not cut";
    EXPECT_NEAR(SplitRgb(at(3, 3)).red, 200, 3);
    EXPECT_NEAR(SplitRgb(at(36, 18)).red, 100, 3);

    Do(Press, kShape, Qt::LeftButton);
    EXPECT_EQ(at(1, 10), dark);
    EXPECT_EQ(at(38, 10), light);
    EXPECT_NEAR(SplitRgb(at(3, 3)).red, 100, 3);
    Do(Release, kShape, Qt::LeftButton);
}

TEST_P(PicButton, RedrawsInTheSameColoursForAnUnknownScheme) {
    c_PicButton button;
    button.SetColors(1, false);
    button.Create(&mBox, QString());
    const QImage normal = mBox.Picture().Image();
    button.SetColors(-1, true);
    EXPECT_EQ(mBox.Picture().Image(), normal);
    Do(Move, kShape, Qt::LeftButton);
    EXPECT_NE(mBox.Picture().Image(), normal);
    button.SetColors(3, true);
    EXPECT_EQ(mBox.Picture().Image(), normal);
    button.SetColors(0, true);
    EXPECT_NE(mBox.Picture().Image(), normal);
}

TEST_P(PicButton, RedrawsWithANewCaption) {
    c_PicButton button;
    button.Create(&mBox, QString());
    const Canvas bare = mBox.Picture();
    Do(Move, kShape, Qt::LeftButton);
    button.SetCaption(QStringLiteral("Go"));
    EXPECT_EQ(mBox.Picture().Image(), WithCaption(bare, Rgb(220, 220, 255), kBlack));
}

} // namespace
