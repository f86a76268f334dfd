#pragma once

#include <QByteArray>
#include <QStringList>
#include <filesystem>
#include <functional>
#include <vector>

/// What the editor changes of songs' files. Nothing here needs a window.
namespace editor {

/// A song's file, and what stands in its ID3v1 tag. What other tags say is only read.
struct SongFacts {
    std::filesystem::path path;
    QString title;
    QString artist;
    QString comment;     ///< in which a long title goes on
    QString newerTitle;  ///< by a newer tag, if there is none above
    QString newerArtist; ///< likewise
    QByteArray end = {}; ///< see `c_ID3::EndOf`
    bool missing = false;

    /// Those by which the song is asked.
    const QString& ShownTitle() const { return newerTitle.isEmpty() ? title : newerTitle; }
    const QString& ShownArtist() const { return newerTitle.isEmpty() ? artist : newerArtist; }

    bool operator==(const SongFacts&) const = default;
};

/// As they are on disk; without a tag the texts are empty.
SongFacts FactsOf(const std::filesystem::path& song);

/// What a song's file is to become.
struct SongWish {
    std::filesystem::path song;
    /// Makes of its facts those that are wanted. The path's file name is the wanted one. With
    /// another `end` all of the tag is as it was when that was read.
    std::function<void(SongFacts& facts)> edit;
};

/// What became of one.
struct SongChange {
    SongFacts before;
    SongFacts after;      ///< as they are on disk now
    QStringList problems; ///< in sentences, what was not done, or not to the letter, and why

    /// Whether the file is another than before.
    bool Any() const { return !(before == after); }
};

/// Makes a song's tag and its name in its folder what is wanted, in this order, as far as they are
/// others. A read-only file keeps its tag and, if it gets another name, becomes writable.
/// No other file is ever replaced.
SongChange ChangeSong(const SongWish& wish);

/// Changes songs one after the other on a thread of its own and waits for it, letting events run,
/// as long as it is `wanted`; nothing if it was not in the end.
std::vector<SongChange> ChangeAside(const std::vector<SongWish>& wishes,
                                    const std::function<bool()>& wanted);

/// The problems of all changes under the names of their files, as one text; empty if there are
/// none.
QString ProblemsOf(const std::vector<SongChange>& changes);

} // namespace editor
