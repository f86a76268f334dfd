#include "game/Scoring.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace game {

namespace {

/// Whole points for the time left until `end`. The difference is rounded to single precision but
/// the product is not: at 1.9 seconds that would give one point more.
std::int32_t PointsLeft(float end, float seconds, int pointsPerSecond) {
    const float left = end - seconds;
    return static_cast<std::int32_t>(std::floor(static_cast<double>(left) * pointsPerSecond));
}

} // namespace

std::int32_t PointsForTime(float seconds) {
    if (seconds >= 0 && seconds < 5)
        return PointsLeft(6, seconds, 20000);
    if (seconds >= 5 && seconds < 10)
        return PointsLeft(10, seconds, 3000);
    if (seconds >= 10 && seconds < 15)
        return PointsLeft(15, seconds, 250);
    if (seconds >= 15 && seconds < 26)
        return 200;
    return 100;
}

int BetFromButton(int button) { return button == 4 ? 5 : button; }

std::int32_t PointsForBet(int bet) {
    switch (bet) {
    case 1:
        return 140000;
    case 2:
        return 70000;
    case 3:
        return 35000;
    case 5:
        return 25000;
    default:
        return 100;
    }
}

std::int32_t AddPoints(std::int32_t score, std::int32_t points) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t sum = std::int64_t{score} + points;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(sum, Limits::min(), Limits::max()));
}

std::int32_t ScoreAfterHint(std::int32_t score) {
    constexpr std::int32_t kPrice = 10000;
    return std::max(AddPoints(score, -kPrice), 0);
}

QString AnswerTimeText(float seconds) {
    // Even for less than one second or nearly two.
    if (seconds < 2)
        return QStringLiteral("Wow, Did it in 1 second");
    const double whole = std::floor(static_cast<double>(seconds));
    return QStringLiteral("You answered in %1 Seconds").arg(QString::number(whole, 'f', 0));
}

} // namespace game
