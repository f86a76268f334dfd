#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <filesystem>
#include <functional>

namespace toolkit {

/// A file of the program's folder, named as in "Images\X.bmp"; a name that begins with a separator
/// is the same. The last folder and the file are found without regard to case.
std::filesystem::path ProgramFile(const QString& name);

// Pictures for finer screens are in the folders "1.5x", "2x" and "3x" beside the base set. The next
// larger one that can be used, or else the base set's, is scaled to the screen's pixel ratio. If
// none can be used, because it is missing or truncated, one message names all such pictures as soon
// as events run. Only the colours of a picture count, not its alpha.

/// The ground of that name, scaled to `size` logical pixels; a plain one if it cannot be used.
QImage LoadGround(const QString& name, QSize size);

/// A picture for a canvas; see `Canvas::SetPicture`.
struct Picture {
    QSize size;                   ///< in logical pixels; empty if there is none
    std::function<QImage()> load; ///< its screen pixels at the current ratio
};

/// The skin of that name: three frames of equal height, stacked, in which black is transparent.
/// None if it cannot be used, as when its first frame has no visible pixel.
Picture LoadSkin(const QString& name);

/// A skin of three plain frames of `size` logical pixels each, in place of a missing one.
Picture PlainSkin(QSize size);

} // namespace toolkit
