#pragma once

#include <functional>

namespace platform {

/// Whether the user has asked the system for less motion, as far as is known: false until the
/// system has answered `AskAboutMotion`.
bool MotionReduced();

/// Asks the system again a moment later, without waiting for the answer.
void AskAboutMotion();

/// Makes `wish` answer `MotionReduced` from now on and returns the previous one; an empty one means
/// the system.
std::function<bool()> ReplaceMotionWish(std::function<bool()> wish);

} // namespace platform
