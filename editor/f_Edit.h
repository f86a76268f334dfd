#pragma once

#include "editor/SongChange.h"
#include "toolkit/Form.h"

#include <filesystem>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace editor {

/// Songs that are edited one after the other.
struct Series {
    std::vector<std::filesystem::path> songs;
    std::size_t place = 0; ///< of the present one, from 0
};

} // namespace editor

/// The dialog in which a song's title, artist and file name are corrected.
class f_Edit : public toolkit::Form {
    Q_OBJECT
public:
    f_Edit();

    /// Shows the song's fields and waits until the dialog is closed. If it was applied, writes the
    /// tag and renames the file; `Changes` then tells what was done. Returns the list key (see
    /// `platform::KeyFromPath`) of the file's path after that. An empty file name, or one left as
    /// it was, keeps the file's own name, which may contain what the box cannot show.
    QString Run(const std::filesystem::path& song, const editor::Series& series = {});

    /// Whether the last `Run` was applied to go on with the next song of its series.
    bool WantsNext() const { return mNext; }

    /// What the last `Run` did, if it was applied.
    const std::vector<editor::SongChange>& Changes() const { return mChanges; }

    /// Whether the last `Run` was left without applying.
    bool Cancelled = false;

    QLineEdit* tFileName;
    QLineEdit* tSongTitle;
    QLineEdit* tArtist;
    QLabel* lPath;
    QLabel* Label1;
    QLabel* Label2;
    QLabel* Label3;
    QPushButton* cmdCombine;
    QPushButton* cmdGet;
    QPushButton* cmdCapital;
    QPushButton* cmdRemove;
    QCheckBox* cAll; ///< the artist is written to the whole series
    QLabel* lTitleFits;
    QLabel* lArtistFits;
    QPushButton* cmdNext;
    QPushButton* cmdApply;
    QPushButton* cmdCancel;

private:
    void Name();
    void LayOut();

    void ShowFolder(const std::filesystem::path& folder, const QString& place);
    void ShowSeries(const editor::Series& series);
    void ShowFitting();
    void LetEdit(const editor::SongFacts& facts);
    void ShowFacts(const editor::SongFacts& facts);
    bool WaitForApply();
    std::filesystem::path NewName(const std::filesystem::path& ownName) const;
    std::vector<editor::SongWish> Wishes(const std::filesystem::path& song,
                                         const editor::Series& series) const;
    void Write(const std::vector<editor::SongWish>& wishes);

    void tFileName_Change();
    void cmdCombine_Click();
    void cmdGet_Click();
    void cmdCapital_Click();
    void cmdRemove_Click();
    void cmdNext_Click();
    void cmdApply_Click();
    void cmdCancel_Click();

    bool mWaiting = false;
    bool mNext = false;
    QString mShownName; ///< of the file, in its box
    std::vector<editor::SongChange> mChanges;
};
