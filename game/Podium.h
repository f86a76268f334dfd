#pragma once

#include "game/RankScores.h"
#include "toolkit/ApiDraw.h"

#include <vector>

namespace game {

/// Draws, at the bottom of `area`, a podium with the players of the first three places who have
/// points; there must be at least one. Those with equal scores share a step.
void DrawPodium(toolkit::Hdc dc, const QRect& area, const std::vector<Standing>& standings);

} // namespace game
