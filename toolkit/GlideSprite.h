#pragma once

#include "toolkit/Form.h"

namespace toolkit {

/// A sprite that glides: `width` x `height` logical pixels of an image and its mask, both taken
/// from (sourceX, sourceY).
struct Sprite {
    Hdc image;
    Hdc mask;
    int sourceX;
    int sourceY;
    int width;
    int height;
};

/// Moves a sprite over the form's image from `from` to `to` in `duration` milliseconds, restoring
/// what lies under it; lets events run meanwhile. With `drawAtEnd` it stays at `to`, however late
/// the last frame was. If the user wants less motion it jumps there. Throws std::domain_error for a
/// duration of 0.
void GlideSprite(Form& form, QPoint from, QPoint to, const Sprite& sprite, int duration,
                 bool drawAtEnd);

} // namespace toolkit
