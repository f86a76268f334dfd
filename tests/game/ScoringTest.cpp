#include "game/Scoring.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(Scoring, EveryBandOfTheClockHasItsPoints) {
    constexpr auto kNaN = std::numeric_limits<float>::quiet_NaN();
    const std::pair<float, int> cases[] = {
        {0.0F, 120000}, {1.9F, 81999}, {4.999F, 20019}, {5.0F, 15000}, {9.9999F, 0},
        {10.0F, 1250},  {14.999F, 0},  {15.0F, 200},    {25.99F, 200}, {26.0F, 100},
        {-0.5F, 100},   {1e30F, 100},  {kNaN, 100},
    };
    for (const auto& [seconds, points] : cases)
        EXPECT_EQ(game::PointsForTime(seconds), points) << seconds << " s";
}

TEST(Scoring, ScoresStayWithinTheirRange) {
    constexpr auto kMax = std::numeric_limits<std::int32_t>::max();
    constexpr auto kMin = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(game::AddPoints(70000, 35000), 105000);
    EXPECT_EQ(game::AddPoints(kMax - 1, 140000), kMax);
    EXPECT_EQ(game::ScoreAfterHint(9999), 0);
    EXPECT_EQ(game::ScoreAfterHint(10001), 1);
    EXPECT_EQ(game::ScoreAfterHint(kMin), 0);
}

TEST(Scoring, UpToTwoSecondsCountAsOneInTheSentence) {
    EXPECT_EQ(game::AnswerTimeText(1.99F), "Wow, Did it in 1 second");
    EXPECT_EQ(game::AnswerTimeText(2.0F), "You answered in 2 Seconds");
}

} // namespace
