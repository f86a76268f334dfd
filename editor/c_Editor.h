#pragma once

#include "editor/Filling.h"
#include "editor/Marks.h"
#include "editor/SongList.h"
#include "editor/c_player.h"
#include "editor/f_Edit.h"
#include "editor/f_Editor.h"
#include "toolkit/Screen.h"
#include "toolkit/c_PicButton.h"
#include "toolkit/c_PicList.h"

#include <QObject>
#include <QTimer>
#include <filesystem>

class QDropEvent;
class QKeyEvent;

/// The playlist editor: fills a list with songs, corrects their titles, previews them, saves and
/// loads playlists.
class c_Editor : public QObject {
    Q_OBJECT
public:
    c_Editor();
    ~c_Editor() override;

    /// For an editor that was opened on the way to a game: names its menu button "Play Game".
    void SetExitToPlay();

    /// Shows the editor with an empty list and waits until it is left.
    void Run();

    /// Whether it was left by its close button.
    bool ExitProgram = true;

    /// Adds a folder's songs and those of its subfolders, after all that was asked for before;
    /// returns at once.
    void AddFolder(const std::filesystem::path& folder);
    /// Whether songs are still being read.
    bool Reading() const { return mFilling.Busy(); }

    f_Editor& Form() { return mForm; }
    f_Edit& TitleDialog() { return mEdit; }
    c_player& Player() { return mPlayer; }
    const c_PicList& List() const { return mList; }
    const editor::SongList& Songs() const { return mSongs; }

    void bAddDir_Clicked();
    void bAddFile_Clicked();
    void bEdit_Clicked();
    void bLoad_Clicked();
    void bMenu_Clicked();
    void bMin_Clicked();
    void bPlay_Clicked();
    void bRemove_Clicked();
    void bSave_Clicked();
    void bX_Clicked();

    void mList_HeaderSelClicked(int column);
    void mList_LineDoubleClicked(int line);
    void mList_LinePrint(toolkit::ListCell& cell);
    void mList_LineSelChanged(int line);
    void mList_LineRightClicked(int line, QPoint place);
    void mList_LinesMoveWanted(const std::vector<int>& lines, int before);

    void Undo();
    void Redo();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Connect();
    void AddKeys();

    /// Shows a message, unless it is empty.
    static void Tell(const QString& text);
    /// Shows a message when no song is selected, and returns whether it did.
    bool TellIfNoneSelected() const;
    std::filesystem::path SelectedSong() const;
    std::vector<std::filesystem::path> MarkedSongs() const;

    void ReadInto(const QString& name, editor::Reading reading);
    void Load(const std::filesystem::path& file);
    void StopReading();
    void Drop(const QDropEvent& event);

    bool SaveList(bool askName);
    bool TellIfFileChanged();
    bool Write(const std::filesystem::path& file);
    /// Blocks the editor during a wait and returns what that returns. `wait` gets a function that
    /// is true while the editor is open.
    template <typename Wait> auto Blocked(Wait wait) {
        mForm.SetBlocked(true);
        auto result = wait([this] { return mForm.isVisible(); });
        mForm.SetBlocked(false);
        mForm.ResumeFocus();
        return result;
    }
    std::vector<editor::SongChange> Change(const std::vector<editor::SongWish>& wishes);
    /// Whether the list may be discarded: if it is unsaved the player is asked, and may save it.
    bool MayGo();
    void OfferKept();
    void KeepCopy();

    void OpenInPlayer(int line);
    void PlayOther(int direction);
    void MarkAll();
    void FindMissing();
    void FindNext(int direction, bool fromHere = false);
    bool Escape();
    bool Key(const QObject* where, const QKeyEvent& event);

    void PutSorted(int column, int mode, std::vector<int> before);
    void LinesChanged();
    void ShowAll();
    bool UntitledSongs() const;

    f_Editor mForm;
    f_Edit mEdit;
    c_player mPlayer;
    toolkit::WindowButtons mWindowButtons;
    c_PicButton bAddFile;
    c_PicButton bAddDir;
    c_PicButton bRemove;
    c_PicButton bEdit;
    c_PicButton bPlay;
    c_PicButton bLoad;
    c_PicButton bSave;
    c_PicButton bMenu;

    c_PicList mList;
    editor::SongList mSongs;
    editor::Marks mMarks;
    std::int16_t mSortMode = 0;
    int mSortsWanted = 0; ///< of long lists, where only the newest wish is met
    int mPlayedLine = -1;
    QString mPlayedKey; ///< of the song in the small player

    QString mAnnounced;                      ///< the number of songs that screen readers know
    bool mLoading = false;                   ///< the list's own file is still being read
    bool mRestoring = false;                 ///< so is what an earlier run of the program left
    std::optional<editor::KeyPrint> mCopied; ///< of the songs in `editor::UnsavedCopy`, if any
    QTimer mKeepSoon;
    editor::Filling mFilling;
};
