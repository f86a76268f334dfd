#pragma once

#include <QString>
#include <optional>

/// The rules by which the title and artist dialog makes texts from one another. A space is U+0020
/// only; letters are compared without regard to case.
namespace editor {

/// `text` in lower case but for the first character of each word. Little words ("of", "the") keep
/// their lower case unless they come first.
QString CapitalizeWords(const QString& text);

/// `text` with spaces for underscores, without characters that are of no use in a title, trimmed.
QString RemoveJunk(const QString& text);

struct ArtistAndTitle {
    QString artist;
    QString title;
};

/// Takes a file name apart at its only "-", or else at its only "_". A name that does not come
/// apart so is the title of an "Unknown" artist. Both texts are free of junk.
ArtistAndTitle GuessFromName(const QString& name);

/// The file name made of artist and title, each trimmed; nothing when both are empty.
std::optional<QString> Combine(const QString& artist, const QString& title);

/// `text` without what some file system allows in no name: control characters and \/<>:*|?
QString NameCharacters(const QString& text);

/// `name` without ".mp3" at its end.
QString WithoutEnding(const QString& name);

/// `name` with ".mp3" at its end, added if it is not there.
QString WithEnding(const QString& name);

} // namespace editor
