#pragma once

#include <QString>
#include <filesystem>

class c_ID3;

namespace library {

/// Whether anything of a text can be seen: more than blanks, control and format characters.
bool HasVisible(const QString& text);

/// What a song is asked by: the title of its tag, else one made from its file's name. Never without
/// a visible character.
QString SongTitle(const c_ID3& tag, const std::filesystem::path& song);

/// The same by the song's `SongTag`, which is read.
QString SongTitle(const std::filesystem::path& song);

} // namespace library
