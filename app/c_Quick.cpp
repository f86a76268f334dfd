#include "app/c_Quick.h"

#include "app/f_Load.h"
#include "app/f_Quick.h"
#include "editor/c_Editor.h"
#include "library/AnyList.h"
#include "library/MarkJournal.h"
#include "library/SongFolders.h"
#include "library/SongSearch.h"
#include "library/SongTitle.h"
#include "library/c_M3U.h"
#include "platform/Message.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "toolkit/SelectFolder.h"
#include "toolkit/cDialog.h"

#include <QLabel>

using namespace toolkit;

namespace fs = std::filesystem;

c_Quick::c_Quick(f_Quick& form, f_Load& loadForm)
    : mForm(form), mLoadForm(loadForm), mWindowButtons(form) {
    mForm.CopyBackground();
    int top = 200;
    for (PictureBox* choice : {mForm.pUseDir, mForm.pUsePlayList, mForm.pEditor}) {
        choice->SetBoxSize(QSize(400, 60));
        choice->MoveTo(200, top);
        top += 80;
    }
    bUseDir.Create(mForm.pUseDir, QStringLiteral("QuickPlay (Select a Directory of MP3's)"));
    bUsePlayList.Create(mForm.pUsePlayList, QStringLiteral("PlayList (Select a playlist file)"));
    bEditor.Create(mForm.pEditor,
                   QStringLiteral("Create Playlist (Use Editor to create a playlist)"));

    connect(&bUseDir, &c_PicButton::Clicked, this, &c_Quick::bUseDir_Clicked);
    connect(&bUsePlayList, &c_PicButton::Clicked, this, &c_Quick::bUsePlaylist_Clicked);
    connect(&bEditor, &c_PicButton::Clicked, this, &c_Quick::bEditor_Clicked);
    connect(&mWindowButtons.bMin, &c_SurfButton::Clicked, this, &c_Quick::bMin_Clicked);
    connect(&mWindowButtons.bX, &c_SurfButton::Clicked, this, &c_Quick::bX_Clicked);
    library::LookForMp3Folder();
    connect(&mLoadForm, &Form::CloseRequested, this, &c_Quick::LoadingDone);
}

c_Quick::~c_Quick() { mForm.hide(); }

fs::path c_Quick::GetM3U() {
    LoadingDone();
    mExitProgram = false;
    ShowChooser();
    platform::WaitWhile([this] { return mForm.isVisible() || mBusy; });
    mLoadForm.ShowLoading();
    platform::PumpEvents();
    return mPath;
}

bool c_Quick::Loading() const { return mLoadForm.isVisible(); }

void c_Quick::LoadingDone() { mLoadForm.hide(); }

void c_Quick::ShowChooser() {
    mForm.Announce(mForm.lExplain->text());
    mForm.ShowInPlace();
    mWindowButtons.Refresh();
}

void c_Quick::bUseDir_Clicked() {
    mBusy = true;
    mForm.hide();
    if (!QuickPlay()) {
        mLoadForm.hide();
        ShowChooser();
    }
    mBusy = false;
}

bool c_Quick::QuickPlay() {
    const fs::path folder = platform::PathFromText(
        BrowseForFolder(&mForm, QStringLiteral("Add Folder"), library::LastMp3Folder()));
    if (folder.empty()) {
        platform::ShowMessage(QStringLiteral("No directory was selected."));
        return false;
    }
    library::SetLastMp3Folder(folder);

    c_M3U list;
    if (!ScanFolder(folder, list))
        return false;
    mLoadForm.hide();
    if (!WriteQuickList(list))
        return false;
    if (list.Count() < game::kFewestSongs) {
        platform::ShowMessage(QStringLiteral("Songrush Requires atleast 10 MP3's to play.\n"
                                             "This directory has %1 MP3's.")
                                  .arg(list.Count()),
                              platform::Icon::Critical);
        return false;
    }
    return !mNoTitles ||
           platform::AskYesNo(QStringLiteral(
               "Warning playlist contains entries with no song titles.\n"
               "Although you can still play, The filename will be used for the correct answer.\n"
               "To correct this problem use the Editor to make sure song titles are correct.\n"
               "Do you still wish to play?"));
}

bool c_Quick::WriteQuickList(const c_M3U& list) {
    std::error_code error;
    fs::create_directories(library::PlaylistFolder(), error);
    // So that one can play even if the program's folder cannot be written to.
    for (const fs::path& folder : {library::PlaylistFolder(), platform::CacheFolder()}) {
        mPath = folder / "Quick.m3u";
        if (list.WriteFile(mPath)) {
            library::MarkJournal::Forget(mPath);
            return true;
        }
    }
    return false;
}

bool c_Quick::ScanFolder(const fs::path& folder, c_M3U& list) {
    constexpr int kLook = 20; // milliseconds
    mNoTitles = false;
    mLoadForm.ShowScan(0, platform::ShownText(folder));
    mLoadForm.Announce(QStringLiteral("Searching for MP3s"));
    mLoadForm.ShowInPlace();
    library::SongSearch search(folder);
    library::SongSearch::News news;
    while (!news.ended) {
        platform::WaitFor(kLook);
        // Closing the waiting window gives up the search.
        if (!mLoadForm.isVisible() || platform::Quitting())
            return false;
        news = search.Take();
        for (const auto& [song, tag] : news.songs) {
            mNoTitles = mNoTitles || !library::HasVisible(tag.Title());
            list.Add(song);
        }
        mLoadForm.ShowScan(list.Count(),
                           platform::ShownText(news.folder.empty() ? folder : news.folder));
    }
    if (!news.folder.empty())
        return true;
    mLoadForm.hide();
    platform::ShowMessage(
        QStringLiteral("The folder %1 cannot be read.").arg(platform::ShownText(folder)));
    return false;
}

void c_Quick::bUsePlaylist_Clicked() {
    mBusy = true;
    mForm.hide();
    ChangeToFolder(library::PlaylistFolder());
    const QString chosen =
        cDialog::GetOpenName(QStringLiteral("Load Playlist"), QStringLiteral("Playlist Files"),
                             library::ListPatterns(), QString(), false);
    mPath = chosen.trimmed().isEmpty() ? fs::path() : platform::PathFromText(chosen);
    if (mPath.empty()) {
        platform::ShowMessage(QStringLiteral("No Playlist was selected.\n"
                                             "You can create a playlist using the Editor."));
        ShowChooser();
    }
    mBusy = false;
}

void c_Quick::bEditor_Clicked() {
    mBusy = true;
    mForm.hide();
    {
        c_Editor editor;
        editor.SetExitToPlay();
        editor.Run();
        mExitProgram = editor.ExitProgram;
    }
    if (!mExitProgram)
        ShowChooser();
    mBusy = false;
}

void c_Quick::bMin_Clicked() { mForm.Minimise(); }

void c_Quick::bX_Clicked() {
    mExitProgram = true;
    mForm.hide();
}
