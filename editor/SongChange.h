#pragma once

#include <QStringList>
#include <filesystem>
#include <vector>

/// What the editor changes of songs' files. Nothing here needs a window; it may all be called on
/// any thread.
namespace editor {

/// A song's file, and what stands in its ID3v1 tag.
struct SongFacts {
    std::filesystem::path path;
    QString title;
    QString artist;
    QString comment; ///< in which a long title goes on
};

/// As they are on disk; without a tag the texts are empty.
SongFacts FactsOf(const std::filesystem::path& song);

struct SongChange {
    SongFacts before;
    SongFacts after;      ///< as they are on disk now
    QStringList problems; ///< in sentences, what was not done, or not to the letter, and why
};

/// Makes the tag of `song` and its name in its folder those of `wanted`, in this order, as far as
/// they are others. A read-only file keeps its tag and, if it gets another name, becomes writable.
/// No other file is ever replaced.
SongChange ChangeSong(const std::filesystem::path& song, const SongFacts& wanted);

/// The problems of all changes under the names of their files, as one text; empty if there are
/// none.
QString ProblemsOf(const std::vector<SongChange>& changes);

} // namespace editor
