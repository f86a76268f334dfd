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

/// The picture of that name at the screen's pixel ratio, or a null image when it cannot be read.
/// Pictures for finer screens lie in folders "1.5x", "2x" and "3x" beside the base set; the next
/// larger one there is, or else the base set's, is scaled to the ratio.
QImage LoadPicture(const QString& name);

/// Begins to load pictures on a thread of its own, in the order given. The first `LoadPicture` of
/// each takes over what was loaded, waiting for it if need be.
void PreloadPictures(const QStringList& names);

/// Notes that a picture is missing: one message tells of all of them as soon as events run.
void ReportMissingPicture(const QString& file);

/// `LoadPicture`, but a missing picture is reported and replaced by a plain ground of `size`
/// logical pixels.
QImage LoadGround(const QString& name, QSize size);

/// A skin of three plain frames of `size` logical pixels each, for one that is missing.
QImage PlainSkin(QSize size);

} // namespace toolkit
