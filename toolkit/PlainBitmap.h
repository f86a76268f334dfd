#pragma once

#include <QImage>
#include <filesystem>

namespace toolkit {

/// The picture of a BMP file of 24 bits a pixel without compression, as all of the program's own
/// are. Null for any other file, and for one that is cut off. Qt's reader could do it too, but
/// looks at all its plugins first, which takes longer than reading.
QImage ReadPlainBitmap(const std::filesystem::path& file);

} // namespace toolkit
