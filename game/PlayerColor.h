#pragma once

#include "toolkit/ColorRef.h"

namespace game {

/// The colour that stands for a player, 1-based, on all screens of a game: light enough for text on
/// the board's ground. The first twelve players have one each.
toolkit::ColorRef PlayerColor(int player);

} // namespace game
