#pragma once

#include "toolkit/PictureBox.h"

namespace toolkit {

/// Copies the form's image behind the box into it, so that whatever is not drawn over looks
/// transparent.
void CopyFormBehind(PictureBox& box);

/// Writes a button's caption, made to fit, centred two pixels above the middle of the box, with a
/// shadow two pixels to the right and below. `margin` pixels stay clear on the left and right.
void DrawButtonCaption(PictureBox& box, const QString& caption, ColorRef color, ColorRef shadow,
                       int margin);

} // namespace toolkit
