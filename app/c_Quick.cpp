#include "app/c_Quick.h"

#include "app/f_Load.h"
#include "app/f_Quick.h"
#include "audio/Mp3Stream.h"
#include "editor/c_Editor.h"
#include "library/AnyList.h"
#include "library/MarkJournal.h"
#include "library/SongFolders.h"
#include "library/SongSearch.h"
#include "library/SongTitle.h"
#include "library/c_M3U.h"
#include "platform/Aside.h"
#include "platform/Message.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "toolkit/SelectFolder.h"
#include "toolkit/cDialog.h"

#include <QFontMetrics>
#include <QLabel>

using namespace toolkit;

namespace fs = std::filesystem;

namespace {

constexpr const char* kQuickList = "Quick.m3u";

} // namespace

c_Quick::c_Quick(f_Quick& form, f_Load& loadForm)
    : mForm(form), mLoadForm(loadForm), mWindowButtons(form) {
    mForm.CopyBackground();
    LayOut();
    bUseDir.Create(mForm.pUseDir, QStringLiteral("QuickPlay (Select a Directory of MP3's)"));
    bUsePlayList.Create(mForm.pUsePlayList, QStringLiteral("PlayList (Select a playlist file)"));
    bEditor.Create(mForm.pEditor,
                   QStringLiteral("Create Playlist (Use Editor to create a playlist)"));
    bPlayOn.Create(mForm.pPlayOn, QString());
    bStartOver.Create(mForm.pStartOver, QStringLiteral("Start over"));

    connect(&bUseDir, &c_PicButton::Clicked, this, &c_Quick::bUseDir_Clicked);
    connect(&bUsePlayList, &c_PicButton::Clicked, this, &c_Quick::bUsePlaylist_Clicked);
    connect(&bEditor, &c_PicButton::Clicked, this, &c_Quick::bEditor_Clicked);
    connect(&bPlayOn, &c_PicButton::Clicked, this, &c_Quick::bPlayOn_Clicked);
    connect(&bStartOver, &c_PicButton::Clicked, this, &c_Quick::bStartOver_Clicked);
    connect(&mWindowButtons.bMin, &c_SurfButton::Clicked, this, &c_Quick::bMin_Clicked);
    connect(&mWindowButtons.bX, &c_SurfButton::Clicked, this, &c_Quick::bX_Clicked);
    library::LookForMp3Folder();
    connect(&mLoadForm, &Form::CloseRequested, this, &c_Quick::LoadingDone);
}

c_Quick::~c_Quick() { mForm.hide(); }

void c_Quick::LayOut() {
    constexpr int kLeft = 200;
    constexpr QSize kSize(400, 60);
    constexpr int kStep = 80;
    int top = 200;
    for (PictureBox* choice : {mForm.pUseDir, mForm.pUsePlayList, mForm.pEditor, mForm.pPlayOn}) {
        choice->SetBoxSize(kSize);
        choice->MoveTo(kLeft, top);
        top += kStep;
    }
    constexpr int kBetween = 10;
    mForm.pStartOver->SetBoxSize(QSize(140, kSize.height()));
    mForm.pStartOver->MoveTo(kLeft + kSize.width() + kBetween, top - kStep);
    for (PictureBox* choice : {mForm.pPlayOn, mForm.pStartOver})
        choice->hide();
}

fs::path c_Quick::GetM3U() {
    LoadingDone();
    mExitProgram = false;
    ShowChooser();
    platform::WaitWhile([this] {
        OfferLastList();
        return mForm.isVisible() || mBusy;
    });
    if (!mExitProgram && !platform::Quitting() && !mPath.empty())
        library::SetLastList(mPath);
    if (!mLoadForm.isVisible())
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
    mLastList = library::LastList();
    if (mLastList.empty())
        return;
    mLastListLook = std::make_unique<platform::Answer<library::UnplayedSongs>>(
        [list = mLastList](const std::stop_token& stop) {
            return library::CountUnplayed(list, stop);
        });
}

/// Offers the last list once it is known to be still there.
void c_Quick::OfferLastList() {
    const auto found = mLastListLook ? mLastListLook->Get() : std::nullopt;
    if (!found)
        return;
    mLastListLook.reset();
    const bool offered = found->songs >= game::kFewestSongs;
    if (offered) {
        constexpr int kNameWidth = 120;
        const bool quick = mLastList.filename() == kQuickList;
        const QString name =
            quick ? QStringLiteral("QuickPlay") : platform::ShownText(mLastList.stem());
        const QFontMetrics metrics(RoundFont(f_Quick::kChoiceFont, true));
        bPlayOn.SetCaption(QStringLiteral("Play on: %1 (%2 of %3 not yet played)")
                               .arg(metrics.elidedText(name, Qt::ElideMiddle, kNameWidth))
                               .arg(found->unplayed)
                               .arg(found->songs));
    }
    for (PictureBox* choice : {mForm.pPlayOn, mForm.pStartOver})
        choice->setVisible(offered);
}

void c_Quick::bPlayOn_Clicked() {
    mBusy = true;
    mForm.hide();
    PlayLastList();
    mBusy = false;
}

void c_Quick::bStartOver_Clicked() {
    mBusy = true;
    mForm.hide();
    mLoadForm.ShowLoading();
    const auto begin = [list = mLastList] { library::MarkJournal(list).NewCycle(); };
    if (platform::AwaitAside(begin, [this] { return mLoadForm.isVisible(); }))
        PlayLastList();
    else
        ShowChooser();
    mBusy = false;
}

void c_Quick::PlayLastList() {
    mPath = mLastList;
    ChangeToFolder(mPath.parent_path()); // from which its paths begin, as after a dialog
    if (!MayPlay())
        ShowChooser();
}

/// Looks whether the songs can be played and, if there are some that cannot, asks about them. False
/// if the player wants something else.
bool c_Quick::MayPlay() {
    if (!mLoadForm.isVisible())
        mLoadForm.ShowLoading();
    const platform::Answer<library::SongCheck> check([list = mPath](const std::stop_token& stop) {
        const auto length = [&stop](const fs::path& song) {
            const auto stream = audio::Mp3Stream::Open(song, stop);
            return stream ? stream->Length() : 0;
        };
        return library::CheckSongs(list, game::kShortestSong, length, stop);
    });
    // Closing the waiting window leads back.
    platform::WaitWhile([&] { return !check.Get() && mLoadForm.isVisible(); });
    if (!check.Get() || !mLoadForm.isVisible() || platform::Quitting())
        return false;
    return AsksAbout(*check.Get());
}

bool c_Quick::AsksAbout(const library::SongCheck& check) {
    // Lists that are too short, or none, are the game's to refuse.
    if (check.unplayable == 0 || check.songs < game::kFewestSongs)
        return true;
    mLoadForm.hide();
    if (check.unplayable == check.songs) {
        platform::ShowMessage(QStringLiteral("None of the songs in this playlist can be played."));
        return false;
    }
    const QString start = check.checked < check.songs ? QStringLiteral("At least ") : QString();
    return platform::AskYesNo(
        start + QStringLiteral("%1 of %2 songs cannot be played: they are missing, cannot be read "
                               "or are shorter than %3 seconds.\n"
                               "Do you want to play with the others?")
                    .arg(check.unplayable)
                    .arg(check.songs)
                    .arg(game::kShortestSong));
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

    const auto list = std::make_shared<c_M3U>();
    const bool written = ScanFolder(folder, *list) && WriteQuickList(list);
    mLoadForm.hide();
    if (!written)
        return false;
    if (list->Count() < game::kFewestSongs) {
        platform::ShowMessage(QStringLiteral("Songrush Requires atleast 10 MP3's to play.\n"
                                             "This directory has %1 MP3's.")
                                  .arg(list->Count()),
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

bool c_Quick::WriteQuickList(const std::shared_ptr<const c_M3U>& list) {
    // So that one can play even if the program's folder cannot be written to.
    for (const fs::path& folder : {library::PlaylistFolder(), platform::CacheFolder()}) {
        mPath = folder / kQuickList;
        const auto written = std::make_shared<bool>(false);
        const auto write = [written, list, file = mPath] {
            std::error_code error;
            fs::create_directories(file.parent_path(), error);
            *written = list->WriteFile(file);
            if (*written)
                library::MarkJournal::Forget(file);
        };
        const bool ended = platform::AwaitAside(write, [this] { return mLoadForm.isVisible(); });
        if (!ended || *written)
            return ended;
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
    } else if (!MayPlay()) {
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
