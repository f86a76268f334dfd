#pragma once

#include <QByteArray>
#include <filesystem>

namespace library {

/// The picture that a song's ID3v2 tag (2.2 to 2.4) or else its APE tag brings, encoded as it is
/// there (JPEG, PNG or anything else): the front cover or else, in ID3v2, the first one. Empty if
/// there is none of at most 8 MiB, or if the song cannot be read or is no regular file. What is
/// damaged counts as missing, and so do links to pictures. Only the heads of the tags' fields and
/// that one picture are read (and what lies before it, in an ID3v2 tag unsynchronised as a whole).
QByteArray ReadCover(const std::filesystem::path& song);

} // namespace library
