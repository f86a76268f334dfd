#pragma once

#include <QByteArray>
#include <filesystem>

namespace library {

/// The encoded picture (JPEG, PNG or anything else) in a song's ID3v2 tag (2.2 to 2.4) or else in
/// its APE tag: the front cover or, in ID3v2, otherwise the first picture. Empty if there is none
/// of at most 8 MiB, or if the song cannot be read or is not a regular file. Damaged pictures and
/// links to pictures count as missing. Reads only the headers of the tags' fields and that one
/// picture (and everything before it in an ID3v2 tag that is unsynchronised as a whole).
QByteArray ReadCover(const std::filesystem::path& song);

} // namespace library
