#pragma once

#include "toolkit/PictureBox.h"

namespace toolkit {

/// Copies the form's image behind the box into it, so that what is left free looks transparent.
void CopyFormBehind(PictureBox& box);

/// Writes a button's caption, made to fit, centred two pixels above the middle of the box with its
/// shadow two pixels right and down. `margin` pixels stay clear left and right.
void DrawButtonCaption(PictureBox& box, const QString& caption, ColorRef color, ColorRef shadow,
                       int margin);

} // namespace toolkit
