#pragma once

#include "editor/History.h"
#include "editor/KeyPrint.h"
#include "editor/SongChange.h"
#include "editor/SongStream.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class c_PicList;

namespace editor {

/// What the editor works on: the lines of its list, their history, and the playlist file that they
/// belong to. Changes can be undone unless it says otherwise here. Needs no window.
class SongList {
public:
    /// Changes songs on disk; see `ChangeSong`. Returns fewer changes than wishes if it was given
    /// up.
    using Change = std::function<std::vector<SongChange>(const std::vector<SongWish>& wishes)>;

    /// `list` holds the lines and must outlive this object.
    SongList(c_PicList& list, Change change);

    /// Begins an empty list: that of a file or, with an empty path, a new one. A foreign file only
    /// lends its name. Cannot be undone.
    void Begin(const std::filesystem::path& file, bool foreign = false);

    /// Appends lines, in one step with those added before if nothing else was done in between.
    void Add(const std::vector<Line>& lines);
    /// Appends lines that were read from the list's own file. Cannot be undone.
    void AddSaved(const std::vector<Line>& lines);
    /// Makes what is added from now on a step of its own.
    void EndAdding() { mAdded.reset(); }

    void Remove(const std::vector<int>& lines);

    /// Notes that the lines were put in another order: line i was `before[i]`.
    void Reordered(const QString& name, const std::vector<int>& before);

    /// Shows changes that were made to songs on disk, in all their lines.
    void Changed(const std::vector<SongChange>& changes);

    /// Replaces songs by other files, in all their lines. `songs` has the old keys and the new
    /// lines.
    void Replace(const QString& name, const std::vector<std::pair<QString, Line>>& songs);

    QString UndoName() const { return mHistory.UndoName(); }
    QString RedoName() const { return mHistory.RedoName(); }
    /// Both return what was not done, or not exactly, in words for the player.
    QString Undo();
    QString Redo();

    /// Whether a song's title is that of a newer tag than ID3v1.
    bool IsNewer(const QString& key) const { return mNewer.contains(key); }
    /// Whether a song was not there when it was read.
    bool IsMissing(const QString& key) const { return mMissing.contains(key); }
    /// The keys of the missing songs in the list, each once.
    std::vector<QString> Missing() const;

    /// The list's file; empty for a new list.
    const std::filesystem::path& File() const { return mFile; }
    /// Whether the list may be written to that file without asking.
    bool OwnsFile() const { return !mFile.empty() && !mForeign; }
    /// The print of the songs in the file, as far as this list knows.
    const KeyPrint& SavedPrint() const { return mSaved; }
    /// What the list is called: its file's name without ending, or "New list".
    QString Name() const;
    std::vector<QString> Keys() const;
    KeyPrint Print() const;
    /// Whether the list differs from its file. An empty list has nothing to lose.
    bool Unsaved() const;
    /// Notes that the list was written to `file`; `keys` is the print of what was written.
    void Saved(const std::filesystem::path& file, const KeyPrint& keys);
    /// Makes it a new list that counts as saved, for a load that was stopped.
    void ForgetFile() { Saved({}, Print()); }

private:
    struct Added;
    /// Lines that were taken out, and where they were.
    struct Taken {
        std::vector<int> places; // ascending
        std::vector<Line> lines;
    };

    Line LineAt(int line) const;
    void NoteLook(const Line& line);
    void Append(const std::vector<Line>& lines);
    Taken TakeOut(const std::vector<int>& places);
    void PutBack(const Taken& taken);
    void SetLine(int line, const Line& now);
    Taken ShowSongs(const QHash<QString, Line>& now);
    void ShowChanges(const std::vector<SongChange>& changes);
    bool ChangeBack(std::vector<SongChange>& changes);

    c_PicList& mList;
    Change mChange;
    History mHistory;
    std::shared_ptr<Added> mAdded; // the last step, if lines were added in it
    std::size_t mAddedStep = 0;
    QSet<QString> mNewer; // keys
    QSet<QString> mMissing;
    std::filesystem::path mFile;
    bool mForeign = false;
    KeyPrint mSaved;                        // what the file holds
    mutable std::optional<KeyPrint> mPrint; // of the lines, unless they have changed
    QString mProblems;                      // of the last `ChangeBack`
};

} // namespace editor
