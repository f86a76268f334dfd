#pragma once

#include <QString>
#include <vector>

namespace game {

/// Says who answered all of `rounds` questions right, by each player's right answers in a row up to
/// the end; empty if nobody did.
QString PerfectGame(const std::vector<int>& streaks, int rounds);

} // namespace game
