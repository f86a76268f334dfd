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

/// What the editor works on: the lines of its list, how they came to be, and the playlist file that
/// they belong to. All changes but `Begin` can be undone. Needs no window.
class SongList {
public:
    /// Changes songs on disk; see `ChangeSong`. Fewer answers than wishes if that was given up.
    using Change = std::function<std::vector<SongChange>(const std::vector<SongWish>& wishes)>;

    /// `list` holds the lines and goes after this object.
    SongList(c_PicList& list, Change change);

    /// Begins an empty list, that of a file or, without one, a new one. A foreign file lends its
    /// name only.
    void Begin(const std::filesystem::path& file, bool foreign = false);

    /// Appends lines; they are one step with those before if nothing else was done meanwhile.
    void Add(const std::vector<Line>& lines);
    /// The same for lines that were read from the list's own file, which is no step.
    void AddSaved(const std::vector<Line>& lines);
    /// What is added from now on is a step of its own.
    void EndAdding() { mAdded.reset(); }

    void Remove(const std::vector<int>& lines);

    /// Notes that the lines were put in another order: line i was `before[i]`.
    void Reordered(const QString& name, const std::vector<int>& before);

    /// Shows what songs on disk have become, in all their lines.
    void Changed(const std::vector<SongChange>& changes);

    /// Puts other files in the place of songs, in all their lines: keys by the keys before.
    void Replace(const QString& name, const std::vector<std::pair<QString, Line>>& songs);

    QString UndoName() const { return mHistory.UndoName(); }
    QString RedoName() const { return mHistory.RedoName(); }
    /// These return what was not done to the letter, to be told.
    QString Undo();
    QString Redo();

    /// Whether a song's title is that of a newer tag than ID3v1.
    bool IsNewer(const QString& key) const { return mNewer.contains(key); }
    /// Whether a song was not there when it was read.
    bool IsMissing(const QString& key) const { return mMissing.contains(key); }
    /// The keys of such songs that are in the list, each once.
    std::vector<QString> Missing() const;

    /// The list's file; empty for a new list.
    const std::filesystem::path& File() const { return mFile; }
    /// Whether the list may be written to that file without asking.
    bool OwnsFile() const { return !mFile.empty() && !mForeign; }
    /// Of the songs that the file holds, as far as this list knows.
    const KeyPrint& SavedPrint() const { return mSaved; }
    /// What the list is called: its file's name without ending, or "New list".
    QString Name() const;
    std::vector<QString> Keys() const;
    KeyPrint Print() const;
    /// Whether there is something that the file does not hold. An empty list has nothing to lose.
    bool Unsaved() const;
    /// Notes that songs of these keys, those of the list, were written to `file`.
    void Saved(const std::filesystem::path& file, const KeyPrint& keys);
    /// From now on it is a new list, with nothing in it to be saved, as after a load that was
    /// stopped.
    void ForgetFile() { Saved({}, Print()); }

private:
    struct Added;
    /// Lines that were taken out, and where they were.
    struct Taken {
        std::vector<int> places; // upwards
        std::vector<Line> lines;
    };

    Line LineAt(int line) const;
    void NoteLook(const Line& line);
    void Append(const std::vector<Line>& lines);
    Taken TakeOut(const std::vector<int>& places);
    void PutBack(const Taken& taken);
    void Fill(const std::vector<Line>& lines, int selected);
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
