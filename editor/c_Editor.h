#pragma once

#include "editor/Filling.h"
#include "editor/Marks.h"
#include "editor/c_player.h"
#include "editor/f_Edit.h"
#include "editor/f_Editor.h"
#include "toolkit/Screen.h"
#include "toolkit/c_PicButton.h"
#include "toolkit/c_PicList.h"

#include <QObject>
#include <filesystem>

class c_ID3;

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

    /// Adds a folder's songs and those of its subfolders; see `editor::Filling`.
    void AddFolder(const std::filesystem::path& folder) { mFilling.AddFolder(folder); }

    f_Editor& Form() { return mForm; }
    f_Edit& TitleDialog() { return mEdit; }
    c_player& Player() { return mPlayer; }
    const c_PicList& List() const { return mList; }

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
    void mList_LinesMoveWanted(const std::vector<int>& lines, int before);

private:
    void Connect();
    /// Shows a message when no song is selected, and returns whether it did.
    bool TellIfNoneSelected() const;
    std::filesystem::path SelectedSong() const;

    void AddSong(const std::filesystem::path& song, const c_ID3& tag);
    void AddSong(const std::filesystem::path& song);
    /// Shows what a song has become, in all its lines.
    void ShowChange(const editor::SongChange& change);
    void ShowAll();

    void MarkAll();
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
    editor::Marks mMarks;
    std::int16_t mSortMode = 0;

    editor::Filling mFilling;
    QString mAnnounced; ///< the number of songs that screen readers know
};
