#include "platform/Motion.h"
#include "platform/Time.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/GlideSprite.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace {

using namespace toolkit;

constexpr QSize kSize(21, 5);
constexpr ColorRef kColor = Rgb(1, 2, 250);

/// A form, a sprite of one colour and a clock that advances 40 milliseconds a frame.
class Glides : public testing::TestWithParam<double> {
protected:
    Glides() {
        Scribble(*mForm.Dc());
        mImage.Fill(QRect({0, kSize.height()}, kSize), kColor);
        mExpected = *mForm.Dc();
        mRealTime = platform::ReplaceTimeSource({[] { return 0.0; },
                                                 [this] {
                                                     mSeen.push_back(SpritePlace());
                                                     return 1000 + 40 * mFrame++;
                                                 }});
    }
    ~Glides() override { platform::ReplaceTimeSource(std::move(mRealTime)); }

    QPoint SpritePlace() {
        for (int y = 0; y < mForm.height(); ++y)
            for (int x = 0; x < mForm.width(); ++x)
                if (mForm.Dc()->Pixel(x, y) == kColor)
                    return QPoint(x, y);
        return QPoint(-1, -1);
    }

    void Glide(QPoint from, QPoint to, int duration, bool drawAtEnd) {
        GlideSprite(mForm, from, to,
                    {&mImage, &mMask, 0, kSize.height(), kSize.width(), kSize.height()}, duration,
                    drawAtEnd);
    }

    AtRatio mRatio{GetParam()};
    Form mForm{"f_Test", QSize(200, 100)};
    Canvas mImage{kSize.width(), 2 * kSize.height()};
    Canvas mMask{kSize.width(), 2 * kSize.height()};
    Canvas mExpected{1, 1};
    std::int64_t mFrame = 0;
    std::vector<QPoint> mSeen; ///< where the sprite stood whenever the clock was read
    platform::TimeSource mRealTime;
};

INSTANTIATE_TEST_SUITE_P(Ratio, Glides, testing::Values(1, 1.25, 2));

TEST_P(Glides, GoByTheClockAndRestoreWhatLiesBelow) {
    Glide({-15, 40}, {195, -8}, 170, false); // leaves the form
    EXPECT_EQ(mForm.Dc()->Image(), mExpected.Image());
    mSeen.clear();
    Glide({10, 4}, {110, 62}, 120, true);
    EXPECT_EQ(mSeen, (std::vector<QPoint>{{-1, -1}, {10, 4}, {43, 23}, {77, 43}, {110, 62}}));
    mExpected.Fill(QRect({124, 70}, kSize), kColor);
    EXPECT_EQ(mForm.Dc()->Image(), mExpected.Image()) << "where the clock left it";
}

TEST_P(Glides, AreAtTheirEndAtOnceWhereLessMotionIsWanted) {
    const auto before = platform::ReplaceMotionWish([] { return true; });
    Glide({10, 5}, {110, 65}, 120, true);
    platform::ReplaceMotionWish(before);
    EXPECT_EQ(SpritePlace(), QPoint(110, 65));
    EXPECT_TRUE(mSeen.empty());
}

} // namespace
