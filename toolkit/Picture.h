#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <QStringList>
#include <filesystem>

namespace toolkit {

/// A file of the program's folder, named as in "Images\X.bmp"; a name that begins with a separator
/// is the same. The last folder and the file are found without regard to case.
std::filesystem::path ProgramFile(const QString& name);

// Pictures for finer screens lie in folders "1.5x", "2x" and "3x" beside the base set. The next
// larger one that can be used, or else the base set's, is scaled to the screen's pixel ratio. When
// none can, because it is not there or cut off, one message names all such pictures as soon as
// events run. Only the colours of a picture count, not its alpha.

/// The ground of that name, scaled to `size` logical pixels; a plain one when it cannot be used.
QImage LoadGround(const QString& name, QSize size);

/// The skin of that name: three frames of equal height, stacked, in which black is transparent.
/// A null image when it cannot be used; one whose first frame has no visible pixel cannot.
QImage LoadSkin(const QString& name);

/// Begins to load pictures on a thread of its own, in the order given. The first `LoadGround` or
/// `LoadSkin` of each takes over what was loaded, waiting for it if need be.
void PreloadPictures(const QString& ground, const QStringList& skins);

/// A skin of three plain frames of `size` logical pixels each, for one that is missing.
QImage PlainSkin(QSize size);

} // namespace toolkit
