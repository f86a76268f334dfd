#pragma once

#include <functional>

namespace platform {

/// Whether the user has asked the system for less motion, as far as is known: false until the
/// system has answered `AskAboutMotion`.
bool MotionReduced();

/// Asks the system anew as soon as the program is idle, without ever waiting for the answer.
void AskAboutMotion();

/// Makes `wish` answer `MotionReduced` from now on and returns what answered before; an empty one
/// stands for the system.
std::function<bool()> ReplaceMotionWish(std::function<bool()> wish);

} // namespace platform
