#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace game {

/// Sorts the players' scores, best first, and returns the label of each in that order: "Player k",
/// k from 1 in the order given. Equal scores keep the order of the players.
std::vector<QString> RankScores(std::vector<std::int32_t>& scores);

} // namespace game
