#pragma once

#include "game/GameKind.h"

#include <cstdint>
#include <map>

namespace game {

/// What was played since the program started.
class Evening {
public:
    /// Notes the best score of a game. Returns whether it beats all earlier games of its kind;
    /// false for the first one.
    bool IsNewBest(GameKind kind, std::int32_t score);

private:
    std::map<GameKind, std::int32_t> mBest;
};

} // namespace game
