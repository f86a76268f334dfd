#pragma once

#include <QByteArray>
#include <QStringList>
#include <filesystem>
#include <functional>
#include <vector>

/// What the editor changes in the files of songs. Nothing here needs a window.
namespace editor {

/// A song's file and what its ID3v1 tag says. Other tags are only read.
struct SongFacts {
    std::filesystem::path path;
    QString title;
    QString artist;
    QString comment;     ///< in which a long title goes on
    QString newerTitle;  ///< by a newer tag, if there is none above
    QString newerArtist; ///< likewise
    QByteArray end = {}; ///< see `c_ID3::EndOf`
    bool missing = false;

    /// Title and artist as a question uses them.
    const QString& ShownTitle() const { return newerTitle.isEmpty() ? title : newerTitle; }
    const QString& ShownArtist() const { return newerTitle.isEmpty() ? artist : newerArtist; }

    bool operator==(const SongFacts&) const = default;
};

/// Reads them from the disk; without a tag the texts are empty.
SongFacts FactsOf(const std::filesystem::path& song);

/// What a song's file is to become.
struct SongWish {
    std::filesystem::path song;
    /// Changes the song's facts to those wanted: title, artist, comment and the path's file name.
    /// Another `end` instead restores the whole tag that was read with it.
    std::function<void(SongFacts& facts)> edit;
};

/// What became of a song.
struct SongChange {
    SongFacts before;
    SongFacts after;      ///< as they are on disk now
    QStringList problems; ///< sentences on what was not done, or not exactly, and why

    /// Whether the file has changed.
    bool Any() const { return !(before == after); }
};

/// Changes a song's tag and then its file name as wanted, where they differ. A read-only file keeps
/// its tag and becomes writable if it is renamed. No other file is ever replaced.
SongChange ChangeSong(const SongWish& wish);

/// Changes songs one after the other on a thread of its own, and waits for it while events run, as
/// long as `wanted` returns true; empty if it stopped waiting.
std::vector<SongChange> ChangeAside(const std::vector<SongWish>& wishes,
                                    const std::function<bool()>& wanted);

/// The problems of all changes under the names of their files, as one text; empty if there are
/// none.
QString ProblemsOf(const std::vector<SongChange>& changes);

} // namespace editor
