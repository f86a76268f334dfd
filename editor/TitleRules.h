#pragma once

#include <QString>
#include <optional>

/// How the title and artist dialog makes one text from another. Only U+0020 is a space; letters are
/// compared without regard to case.
namespace editor {

/// `text` in lower case except for the first character of each word. Little words ("of", "the")
/// stay in lower case unless they come first.
QString CapitalizeWords(const QString& text);

/// `text` with spaces for underscores, without characters that have no place in a title, trimmed.
QString RemoveJunk(const QString& text);

struct ArtistAndTitle {
    QString artist;
    QString title;
};

/// Splits a file name at its only "-", or else at its only "_". A name that cannot be split is the
/// title of an "Unknown" artist. Junk is removed from both texts.
ArtistAndTitle GuessFromName(const QString& name);

/// The file name made of artist and title, each trimmed; nothing if both are empty.
std::optional<QString> Combine(const QString& artist, const QString& title);

/// `text` without what some file systems forbid in names: control characters and \/<>:*|?
QString NameCharacters(const QString& text);

/// `name` without ".mp3" at its end.
QString WithoutEnding(const QString& name);

/// `name` with ".mp3" at its end, added if it is missing.
QString WithEnding(const QString& name);

/// `text` as it is written into a tag: without what reading leaves out, which might hide from it
/// that a title goes on.
QString TagText(const QString& text);

/// How a text comes out of a tag.
struct Fitting {
    QString text;      ///< what can be read from the tag, if it is written
    bool lost = false; ///< it has letters that a tag cannot hold there, and others stand for them
    int length = 0;    ///< of the whole text
    int room = 0;      ///< how much of it the tag can hold

    bool Cut() const { return length > room; }
    /// Says how much fits and what would become of the rest.
    QString Hint() const;
};

/// Titles have room for 59 characters, the end of a long one in the comment; artists for 30. Blanks
/// at the ends do not count.
Fitting FitTitle(const QString& title);
Fitting FitArtist(const QString& artist);

} // namespace editor
