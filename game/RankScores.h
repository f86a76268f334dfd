#pragma once

#include <cstdint>
#include <vector>

namespace game {

/// A player among those of a game.
struct Standing {
    int player; ///< 1-based
    std::int32_t score;
    int place; ///< 1 for the best; equal scores share one

    /// Without points nobody wins.
    bool Won() const { return place == 1 && score > 0; }
};

/// Sorts the players' scores, best first, and returns whose they are. Equal scores keep the order
/// of the players.
std::vector<Standing> RankScores(std::vector<std::int32_t>& scores);

} // namespace game
