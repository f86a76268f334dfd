#pragma once

#include "game/GameKind.h"

#include <cstdint>
#include <map>

namespace game {

/// What was played since the program started.
class Evening {
public:
    /// Notes the best score of a game; whether it beats that of every game of its kind before,
    /// which takes at least one.
    bool IsNewBest(GameKind kind, std::int32_t score);

private:
    std::map<GameKind, std::int32_t> mBest;
};

} // namespace game
