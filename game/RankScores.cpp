#include "game/RankScores.h"

#include <algorithm>

namespace game {

std::vector<Standing> RankScores(std::vector<std::int32_t>& scores) {
    std::vector<Standing> standings;
    standings.reserve(scores.size());
    for (const std::int32_t score : scores)
        standings.push_back({static_cast<int>(standings.size()) + 1, score, 1});
    std::ranges::stable_sort(standings, std::ranges::greater(), &Standing::score);
    for (std::size_t i = 0; i < scores.size(); ++i) {
        Standing& standing = standings[i];
        scores[i] = standing.score;
        const bool tie = i > 0 && standings[i - 1].score == standing.score;
        standing.place = tie ? standings[i - 1].place : static_cast<int>(i) + 1;
    }
    return standings;
}

} // namespace game
