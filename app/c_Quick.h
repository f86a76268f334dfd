#pragma once

#include "game/SongSource.h"
#include "library/ListLook.h"
#include "platform/Answer.h"
#include "toolkit/Screen.h"
#include "toolkit/c_PicButton.h"

#include <QObject>
#include <filesystem>
#include <memory>

class c_M3U;
class f_Load;
class f_Quick;

/// Asks where a game's songs come from: a folder of MP3 files, a playlist, or one that the player
/// makes in the editor first.
class c_Quick : public QObject, public game::SongSource {
    Q_OBJECT
public:
    c_Quick(f_Quick& form, f_Load& loadForm);
    ~c_Quick() override;

    std::filesystem::path GetM3U() override;
    bool ExitProgram() const override { return mExitProgram; }
    bool Loading() const override;
    void LoadingDone() override;

    void bUseDir_Clicked();
    void bUsePlaylist_Clicked();
    void bEditor_Clicked();
    void bPlayOn_Clicked();
    void bStartOver_Clicked();
    void bMin_Clicked();
    void bX_Clicked();

private:
    bool QuickPlay();
    bool WriteQuickList(const std::shared_ptr<const c_M3U>& list);
    bool ScanFolder(const std::filesystem::path& folder, c_M3U& list);
    void ShowChooser();
    void LayOut();
    void OfferLastList();
    void PlayLastList();
    bool MayPlay();
    bool AsksAbout(const library::SongCheck& check);

    f_Quick& mForm;
    f_Load& mLoadForm;
    bool mExitProgram = false;
    std::filesystem::path mPath;
    bool mBusy = false;
    bool mNoTitles = false;
    toolkit::WindowButtons mWindowButtons;
    c_PicButton bUseDir;
    c_PicButton bUsePlayList;
    c_PicButton bEditor;
    c_PicButton bPlayOn;
    c_PicButton bStartOver;
    std::filesystem::path mLastList;
    std::unique_ptr<platform::Answer<library::UnplayedSongs>> mLastListLook;
};
