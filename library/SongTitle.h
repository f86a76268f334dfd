#pragma once

#include <QString>
#include <filesystem>

class c_ID3;

namespace library {

/// Whether a text has a visible character: one that is not a blank, control or format character.
bool HasVisible(const QString& text);

/// The title that a question uses: that of the song's tag, else one made from its file name. Always
/// has a visible character.
QString SongTitle(const c_ID3& tag, const std::filesystem::path& song);

/// The same, reading the song's `SongTag`.
QString SongTitle(const std::filesystem::path& song);

} // namespace library
