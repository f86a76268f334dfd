#include "game/Evening.h"

namespace game {

bool Evening::IsNewBest(GameKind kind, std::int32_t score) {
    const auto [best, isFirst] = mBest.try_emplace(kind, score);
    if (isFirst || score <= best->second)
        return false;
    best->second = score;
    return true;
}

} // namespace game
