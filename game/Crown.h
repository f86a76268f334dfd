#pragma once

#include "toolkit/ApiDraw.h"

namespace game {

/// Draws a glowing crown that fills `area`, but for the glow around it.
void DrawCrown(toolkit::Hdc dc, const QRect& area, toolkit::ColorRef color);

} // namespace game
