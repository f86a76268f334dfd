#pragma once

#include <QString>
#include <cstdint>

namespace game {

/// Points for a right answer after `seconds` on the clock: the faster, the more.
std::int32_t PointsForTime(float seconds);

/// Seconds of music that choice button `button`, 1 to 4, bets: the fourth stands for 5 seconds.
int BetFromButton(int button);

/// Points for a right answer after a bet of `bet` seconds.
std::int32_t PointsForBet(int bet);

/// The score after `points` more; stops at the end of the range instead of wrapping around.
std::int32_t AddPoints(std::int32_t score, std::int32_t points);

/// The score after paying for a hint; never below 0.
std::int32_t ScoreAfterHint(std::int32_t score);

/// The sentence about an answer after `seconds` on the clock.
QString AnswerTimeText(float seconds);

} // namespace game
