#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace game {

/// Sorts the players' scores, best first, and returns their labels in that order: "Player k", where
/// k is the player's place in the original order, from 1. Equal scores keep that order.
std::vector<QString> RankScores(std::vector<std::int32_t>& scores);

} // namespace game
