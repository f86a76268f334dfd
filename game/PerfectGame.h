#pragma once

#include <QString>
#include <vector>

namespace game {

/// A sentence about who answered all of `rounds` questions right; empty if nobody did. `streaks`
/// has each player's number of right answers in a row at the end.
QString PerfectGame(const std::vector<int>& streaks, int rounds);

} // namespace game
