#pragma once

#include <QByteArray>
#include <QImage>

namespace game {

/// The middle of an encoded picture (JPEG, PNG, WebP, GIF or BMP, as far as Qt can read them here)
/// as a square of `side` pixels; of an animated one the first frame. Null if it cannot be shown: it
/// is none of these, damaged, of more than 4096 x 4096 pixels, or much too narrow. May be called on
/// any thread.
QImage DecodeCover(const QByteArray& encoded, int side);

} // namespace game
