#pragma once

#include "platform/Message.h"

class QPainter;

namespace toolkit {

/// Side of a message's sign in logical pixels.
constexpr int kMessageSign = 48;

/// Draws the sign of a message, in strokes of light, with its corner at the painter's origin.
void PaintMessageSign(QPainter& painter, platform::Icon icon);

} // namespace toolkit
