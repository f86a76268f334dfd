#include "game/RankScores.h"

#include <algorithm>
#include <functional>
#include <numeric>

namespace game {

std::vector<QString> RankScores(std::vector<std::int32_t>& scores) {
    std::vector<std::size_t> players(scores.size());
    std::iota(players.begin(), players.end(), std::size_t{0});
    std::stable_sort(players.begin(), players.end(),
                     [&scores](std::size_t a, std::size_t b) { return scores[a] > scores[b]; });
    std::sort(scores.begin(), scores.end(), std::greater<>());
    std::vector<QString> labels;
    labels.reserve(players.size());
    for (const std::size_t player : players)
        labels.push_back(QStringLiteral("Player %1").arg(player + 1));
    return labels;
}

} // namespace game
