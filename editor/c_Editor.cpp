#include "editor/c_Editor.h"

#include "editor/ColumnSettings.h"
#include "editor/UnsavedCopy.h"
#include "library/AnyList.h"
#include "library/MarkJournal.h"
#include "library/SongFolders.h"
#include "library/SongTitle.h"
#include "library/c_M3U.h"
#include "platform/Aside.h"
#include "platform/Message.h"
#include "platform/ShowInFolder.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "toolkit/PopUpMenu.h"
#include "toolkit/SelectFolder.h"
#include "toolkit/cDialog.h"

#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QMimeData>
#include <QSet>
#include <QShortcut>
#include <QUrl>
#include <algorithm>
#include <memory>
#include <utility>

using namespace toolkit;

namespace fs = std::filesystem;

namespace {

const QString kTitle = QStringLiteral("Mp3 Editor");

void Tell(const QString& text) {
    if (!text.isEmpty())
        platform::ShowMessage(text, platform::Icon::Information, kTitle);
}

/// The files of a multiple selection: one path, or a folder and names in it, then blanks.
std::vector<fs::path> ChosenFiles(QString answer) {
    while (answer.endsWith(u' '))
        answer.chop(1);
    const QStringList parts = answer.split(u'?');
    const auto path = [](const QString& part) {
        return platform::PathFromText(platform::UnescapeSeparators(part));
    };
    if (parts.size() == 1)
        return {path(parts.front())};
    std::vector<fs::path> files;
    for (const QString& name : parts.mid(1))
        files.push_back(path(parts.front()) / path(name));
    return files;
}

QString WithPlaylistEnding(const QString& name) {
    const QString ending = QStringLiteral(".m3u");
    return name.endsWith(ending, Qt::CaseInsensitive) ? name : name + ending;
}

/// Byte for byte, whatever their names are made of.
std::vector<fs::path> LocalFiles(const QDropEvent& event) {
    std::vector<fs::path> files;
    for (const QUrl& url : event.mimeData()->urls())
        if (url.isLocalFile())
            files.emplace_back(
                QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1())
                    .toStdString());
    return files;
}

} // namespace

/// What a wait returns, which lasts while the editor is open at most; meanwhile it is blocked.
template <typename Wait> auto c_Editor::Blocked(Wait wait) {
    mForm.SetBlocked(true);
    auto result = wait([this] { return mForm.isVisible(); });
    mForm.SetBlocked(false);
    mForm.ResumeFocus();
    return result;
}

c_Editor::c_Editor()
    : mWindowButtons(mForm), mSongs(mList,
                                    [this](const std::vector<editor::SongWish>& wishes) {
                                        return Blocked([&](const auto& open) {
                                            return editor::ChangeAside(wishes, open);
                                        });
                                    }),
      mFilling([this] { ShowAll(); }) {
    mForm.CopyBackground();
    bAddFile.Create(mForm.pAddFile, QStringLiteral("Add File"));
    bAddDir.Create(mForm.pAddDir, QStringLiteral("Add Directory"));
    bRemove.Create(mForm.pRemove, QStringLiteral("Remove"));
    bEdit.Create(mForm.pEdit, QStringLiteral("Edit Title/Artist"));
    bPlay.Create(mForm.pPlay, QStringLiteral("Play"));
    bLoad.Create(mForm.pLoad, QStringLiteral("Load PlayList"));
    bSave.Create(mForm.pSave, QStringLiteral("Save PlayList"));
    bMenu.Create(mForm.pMenu, QStringLiteral("Exit Editor"));
    mList.Create(mForm.pList, QStringLiteral("File Name\\Song Title\\Artist"));
    editor::RememberColumns(mList);
    mList.SetMarks([this](int line) { return mMarks.Has(line); });
    constexpr int kKeepAfter = 2000; // milliseconds
    mKeepSoon.setSingleShot(true);
    mKeepSoon.setInterval(kKeepAfter);
    Connect();
    AddKeys();
}

c_Editor::~c_Editor() {
    mForm.hide();
    for (QWidget* watched : {static_cast<QWidget*>(&mForm), static_cast<QWidget*>(mForm.pList),
                             static_cast<QWidget*>(mForm.tFind)})
        watched->removeEventFilter(this);
}

void c_Editor::Connect() {
    connect(&bAddFile, &c_PicButton::Clicked, this, &c_Editor::bAddFile_Clicked);
    connect(&bAddDir, &c_PicButton::Clicked, this, &c_Editor::bAddDir_Clicked);
    connect(&bRemove, &c_PicButton::Clicked, this, &c_Editor::bRemove_Clicked);
    connect(&bEdit, &c_PicButton::Clicked, this, &c_Editor::bEdit_Clicked);
    connect(&bPlay, &c_PicButton::Clicked, this, &c_Editor::bPlay_Clicked);
    connect(&bLoad, &c_PicButton::Clicked, this, &c_Editor::bLoad_Clicked);
    connect(&bSave, &c_PicButton::Clicked, this, &c_Editor::bSave_Clicked);
    connect(&bMenu, &c_PicButton::Clicked, this, &c_Editor::bMenu_Clicked);
    connect(&mWindowButtons.bX, &c_SurfButton::Clicked, this, &c_Editor::bX_Clicked);
    connect(&mWindowButtons.bMin, &c_SurfButton::Clicked, this, &c_Editor::bMin_Clicked);
    connect(&mList, &c_PicList::HeaderSelClicked, this, &c_Editor::mList_HeaderSelClicked);
    connect(&mList, &c_PicList::LineDoubleClicked, this, &c_Editor::mList_LineDoubleClicked);
    connect(&mList, &c_PicList::LinePrint, this, &c_Editor::mList_LinePrint);
    connect(&mList, &c_PicList::LineSelChanged, this, &c_Editor::mList_LineSelChanged);
    connect(&mList, &c_PicList::LineRightClicked, this, &c_Editor::mList_LineRightClicked);
    connect(&mList, &c_PicList::LinesMoveWanted, this, &c_Editor::mList_LinesMoveWanted);
    connect(&mList, &c_PicList::RemoveWanted, this, &c_Editor::bRemove_Clicked);
    connect(&mList, &c_PicList::SelectAllWanted, this, &c_Editor::MarkAll);
    connect(mForm.tFind, &QLineEdit::textChanged, this, [this] { FindNext(1, true); });
    connect(&mPlayer, &c_player::OtherWanted, this, &c_Editor::PlayOther);
    connect(&mKeepSoon, &QTimer::timeout, this, &c_Editor::KeepCopy);
    mForm.installEventFilter(this);
    mForm.pList->installEventFilter(this); // before the list, which takes Space for a letter
    mForm.tFind->installEventFilter(this);
}

void c_Editor::AddKeys() {
    const auto add = [this](QKeyCombination keys, auto act) {
        auto* shortcut = new QShortcut(keys, &mForm);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    add(Qt::CTRL | Qt::Key_O, &c_Editor::bLoad_Clicked);
    add(Qt::CTRL | Qt::Key_S, [this] { SaveList(false); });
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_S, &c_Editor::bSave_Clicked);
    add(Qt::CTRL | Qt::Key_Z, &c_Editor::Undo);
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_Z, &c_Editor::Redo);
    add(Qt::CTRL | Qt::Key_Y, &c_Editor::Redo);
    add(Qt::Key_F2, &c_Editor::bEdit_Clicked);
    add(Qt::Key_F3, [this] { FindNext(1); });
    add(Qt::SHIFT | Qt::Key_F3, [this] { FindNext(-1); });
    add(Qt::CTRL | Qt::Key_F, [this] {
        mForm.tFind->setFocus();
        mForm.tFind->selectAll();
    });
}

void c_Editor::SetExitToPlay() { bMenu.SetCaption(QStringLiteral("Play Game")); }

void c_Editor::Run() {
    ExitProgram = true;
    mForm.ShowInPlace();
    mWindowButtons.Refresh();
    ShowAll();
    mForm.pList->setFocus();
    OfferKept();
    platform::WaitWhile([this] { return mForm.isVisible(); });
    mKeepSoon.stop();
    if (platform::Quitting())
        KeepCopy();
    else if (!mCopied.empty())
        editor::UnsavedCopy::Discard();
    StopReading();
}

// Leaving

bool c_Editor::MayGo() {
    if (!mSongs.Unsaved())
        return true;
    const QString question =
        mSongs.File().empty()
            ? QStringLiteral("The new list is not saved.\nDo you want to save it?")
            : QStringLiteral("The list \"%1\" has changes that are not saved.\n"
                             "Do you want to save them?")
                  .arg(mSongs.Name());
    switch (platform::AskToSave(question, kTitle)) {
    case platform::SaveAnswer::Save:
        return SaveList(false);
    case platform::SaveAnswer::DontSave:
        return true;
    case platform::SaveAnswer::Cancel:
        break;
    }
    return false;
}

void c_Editor::bMenu_Clicked() {
    if (!MayGo())
        return;
    ExitProgram = false;
    mForm.hide();
}

void c_Editor::bX_Clicked() {
    if (MayGo())
        mForm.hide();
}

void c_Editor::bMin_Clicked() { mForm.Minimise(); }

/// Offers what was being edited when the program ended without being left.
void c_Editor::OfferKept() {
    const auto kept = std::make_shared<std::optional<editor::UnsavedCopy::Kept>>();
    platform::DoAside(
        &mForm, [kept] { *kept = editor::UnsavedCopy::Read(); },
        [this, kept] {
            if (!*kept || !mForm.isVisible() || mList.LineCount() > 0)
                return;
            const auto& [list, foreign, songs] = **kept;
            const QString name =
                list.empty()
                    ? QStringLiteral("A new list")
                    : QStringLiteral("The list \"%1\"").arg(platform::ShownText(list.stem()));
            if (!platform::AskYesNo(QStringLiteral("%1 was not saved when the program ended.\n"
                                                   "Do you want to go on with it?")
                                        .arg(name),
                                    kTitle)) {
                if (!platform::Quitting())
                    editor::UnsavedCopy::Discard();
                return;
            }
            for (const fs::path& song : songs)
                mCopied.push_back(platform::KeyFromPath(song));
            mSongs.Begin(list, foreign);
            mRestoring = true;
            ReadInto(name, editor::ReadFiles(songs));
        });
}

void c_Editor::KeepCopy() {
    if (mRestoring)
        return; // what was kept is more than what is there
    std::vector<QString> keys = mSongs.Unsaved() ? mSongs.Keys() : std::vector<QString>();
    if (keys == mCopied)
        return;
    mCopied = std::move(keys);
    if (mCopied.empty())
        editor::UnsavedCopy::Discard();
    else
        editor::UnsavedCopy::Keep(mSongs.File(), !mSongs.OwnsFile(), mCopied);
}

// Filling the list

void c_Editor::bAddFile_Clicked() {
    std::error_code ignored;
    fs::current_path(library::LastMp3Folder(), ignored);
    const QString answer =
        cDialog::GetOpenName(QStringLiteral("Select an Mp3"), QStringLiteral("Mp3s"),
                             QStringLiteral("*.mp3"), QString(), true);
    if (answer.trimmed().isEmpty())
        return;
    library::SetLastMp3Folder(fs::current_path(ignored));
    ReadInto(QStringLiteral("files"), editor::ReadFiles(ChosenFiles(answer)));
}

void c_Editor::bAddDir_Clicked() {
    const fs::path folder = platform::PathFromText(
        BrowseForFolder(&mForm, QStringLiteral("Add Folder"), library::LastMp3Folder()));
    if (folder.empty())
        return;
    library::SetLastMp3Folder(folder);
    AddFolder(folder);
}

void c_Editor::AddFolder(const fs::path& folder) {
    ReadInto(platform::ShownText(folder), editor::ReadFolder(folder));
}

void c_Editor::ReadInto(const QString& name, editor::Reading reading) {
    mFilling.Do({name, std::move(reading),
                 [this](const auto& news) {
                     mSongs.Add(news.lines);
                     mMarks.SetLineCount(mList.LineCount());
                 },
                 [this](const auto& news) {
                     mRestoring = false;
                     mSongs.EndAdding();
                     Tell(news.failure);
                 }});
}

void c_Editor::bLoad_Clicked() {
    if (!MayGo())
        return;
    ChangeToFolder(library::PlaylistFolder());
    const QString answer =
        cDialog::GetOpenName(QStringLiteral("Load Playlist"), QStringLiteral("Playlist Files"),
                             library::ListPatterns(), QString(), false);
    if (!answer.trimmed().isEmpty())
        Load(platform::PathFromText(answer));
}

/// Puts a playlist in the place of the list, and of all that was to be added to it. One without
/// songs leaves it as it is.
void c_Editor::Load(const fs::path& file) {
    StopReading();
    const auto begun = std::make_shared<bool>(false);
    mFilling.Do({platform::ShownText(file.filename()), editor::ReadPlaylist(file),
                 [this, file, begun](const auto& news) {
                     if (!std::exchange(*begun, true)) {
                         mLoading = true;
                         mSongs.Begin(file, news.foreign);
                         mMarks.Begin(0, -1);
                     }
                     if (mLoading)
                         mSongs.AddSaved(news.lines);
                     else
                         mSongs.Add(news.lines);
                     mMarks.SetLineCount(mList.LineCount());
                 },
                 [this](const auto& news) {
                     mLoading = false;
                     mSongs.EndAdding();
                     Tell(news.failure);
                 }});
}

void c_Editor::StopReading() {
    mFilling.Stop();
    mRestoring = false;
    if (std::exchange(mLoading, false))
        mSongs.ForgetFile(); // which would otherwise be replaced by a part of it
    ShowAll();
}

void c_Editor::Drop(const QDropEvent& event) {
    std::vector<fs::path> files = LocalFiles(event);
    if (files.size() == 1 && mList.LineCount() == 0 && library::HasListName(files.front().native()))
        Load(files.front());
    else if (!files.empty())
        ReadInto(QStringLiteral("files"), editor::ReadDropped(std::move(files)));
}

// Saving it

void c_Editor::bSave_Clicked() { SaveList(true); }

bool c_Editor::SaveList(bool askName) {
    if (mList.LineCount() == 0) {
        Tell(QStringLiteral("Nothing to save."));
        return false;
    }
    fs::path file = mSongs.File();
    if (askName || !mSongs.OwnsFile()) {
        std::error_code ignored;
        fs::create_directories(library::PlaylistFolder(), ignored);
        ChangeToFolder(file.empty() ? library::PlaylistFolder() : file.parent_path());
        const QString answer = cDialog::GetSaveName(
            QStringLiteral("Save Playlist"), QStringLiteral("PlayList Files"),
            QStringLiteral("*.m3u"),
            file.empty() ? QString()
                         : platform::TextFromPath(file.stem()) + QStringLiteral(".m3u"));
        if (answer.isEmpty())
            return false;
        file = platform::PathFromText(WithPlaylistEnding(answer));
    }
    if (UntitledSongs())
        platform::ShowMessage(
            QStringLiteral("Warning, This playlist contains MP3s that do not have song titles "
                           "set.\n"
                           "If used for a game, the filename will be used for the song title."),
            platform::Icon::Warning);
    const bool written = Write(file);
    ShowAll();
    platform::PumpEvents();
    return written;
}

bool c_Editor::Write(const fs::path& file) {
    const KeyPrint print = mSongs.Print();
    const auto written = std::make_shared<bool>(false);
    const auto write = [written, keys = mSongs.Keys(), file] {
        c_M3U playlist;
        for (const QString& key : keys)
            playlist.Add(platform::PathFromKey(key));
        *written = playlist.WriteFile(file);
        if (*written)
            library::MarkJournal::Forget(file);
    };
    if (!Blocked([&](const auto& open) { return platform::AwaitAside(write, open); }) || !*written)
        return false;
    mLoading = false; // what is still read is not in the file
    mSongs.Saved(file, print);
    return true;
}

bool c_Editor::UntitledSongs() const {
    for (int line = 0; line < mList.LineCount(); ++line)
        if (!library::HasVisible(mList.CellText(line, 1)))
            return true;
    return false;
}

// What is done with songs

bool c_Editor::TellIfNoneSelected() const {
    if (mList.LineSelectedNum() >= 0)
        return false;
    Tell(mList.LineCount() == 0 ? QStringLiteral("No songs in list")
                                : QStringLiteral("No song is selected."));
    return true;
}

fs::path c_Editor::SelectedSong() const {
    return platform::PathFromKey(mList.LineKey(mList.LineSelectedNum()));
}

/// Those of the marked lines and the selected one, each once.
std::vector<fs::path> c_Editor::MarkedSongs() const {
    std::vector<fs::path> songs;
    QSet<QString> known;
    for (const int line : mList.ChosenLines()) {
        const QString key = mList.LineKey(line);
        if (!known.contains(key))
            songs.push_back(platform::PathFromKey(key));
        known.insert(key);
    }
    return songs;
}

void c_Editor::bEdit_Clicked() {
    if (mEdit.isVisible() || TellIfNoneSelected())
        return;
    editor::Series series{MarkedSongs(), 0};
    for (; series.place < series.songs.size(); ++series.place) {
        mEdit.Run(series.songs[series.place], series);
        if (mEdit.Cancelled)
            return;
        mSongs.Changed(mEdit.Changes());
        ShowAll();
        Tell(editor::ProblemsOf(mEdit.Changes()));
        if (!mEdit.WantsNext())
            return;
    }
}

void c_Editor::bPlay_Clicked() {
    if (TellIfNoneSelected())
        return;
    OpenInPlayer(mList.LineSelectedNum());
    mPlayer.Show();
}

void c_Editor::OpenInPlayer(int line) {
    mPlayedLine = line;
    mPlayedKey = mList.LineKey(line);
    mPlayer.OpenFile(platform::PathFromKey(mPlayedKey));
}

/// Goes to a neighbour of the song in the small player, wherever its line is by now.
void c_Editor::PlayOther(int direction) {
    const std::vector<QString> keys = mSongs.Keys();
    if (mList.LineKey(mPlayedLine) != mPlayedKey)
        mPlayedLine = static_cast<int>(std::ranges::find(keys, mPlayedKey) - keys.begin());
    const int line = mPlayedLine + direction;
    if (line < 0 || line >= mList.LineCount())
        return;
    const bool playing = mPlayer.InUse();
    OpenInPlayer(line);
    if (playing)
        mPlayer.bPlay_Clicked();
}

void c_Editor::bRemove_Clicked() {
    mSongs.Remove(mList.ChosenLines());
    LinesChanged();
}

void c_Editor::mList_HeaderSelClicked(int column) {
    QApplication::beep();
    const std::vector<int> before = mList.SortByHeader(column, mSortMode == 1 ? 2 : 0);
    mSongs.Reordered(QStringLiteral("Sort by ") + mList.HeaderText(column), before);
    mMarks.Reorder(before);
    mSortMode = mSortMode == 1 ? 0 : 1;
    ShowAll();
    mForm.Announce(QStringLiteral("Sorted by %1, %2")
                       .arg(mList.HeaderText(column), mList.IsSortedDownwards()
                                                          ? QStringLiteral("descending")
                                                          : QStringLiteral("ascending")));
}

void c_Editor::Undo() {
    if (mSongs.UndoName().isEmpty())
        return;
    StopReading(); // it would go on with what is taken back
    const QString problems = mSongs.Undo();
    LinesChanged();
    Tell(problems);
}

void c_Editor::Redo() {
    const QString problems = mSongs.Redo();
    LinesChanged();
    Tell(problems);
}

void c_Editor::FindMissing() {
    const fs::path folder = platform::PathFromText(
        BrowseForFolder(&mForm, QStringLiteral("Find missing songs in"), library::LastMp3Folder()));
    if (folder.empty())
        return;
    const std::vector<QString> missing = mSongs.Missing();
    const auto found = std::make_shared<std::vector<editor::Line>>();
    mFilling.Do({platform::ShownText(folder), editor::FindByName(folder, missing),
                 [found](const auto& news) {
                     found->insert(found->end(), news.lines.begin(), news.lines.end());
                 },
                 [this, missing, found](const auto&) {
                     const auto matches = editor::MatchByName(missing, *found);
                     mSongs.Replace(QStringLiteral("Find"), matches);
                     ShowAll();
                     Tell(QStringLiteral("%1 of %2 missing songs were found.")
                              .arg(matches.size())
                              .arg(missing.size()));
                 }});
}

void c_Editor::FindNext(int direction, bool fromHere) {
    const int count = mList.LineCount();
    const int selected = mList.LineSelectedNum();
    const QString text = mForm.tFind->text();
    int line = -1;
    if (count > 0 && !text.isEmpty()) {
        const int from = fromHere || selected < 0 ? std::max(selected, 0) : selected + direction;
        line = mList.FindText(text, (from + count) % count, direction > 0);
    }
    mForm.ShowFound(line >= 0 || text.isEmpty());
    if (line >= 0)
        mList.SelectLine(line);
}

// What the list shows, and its keys

/// After lines came or went.
void c_Editor::LinesChanged() {
    mMarks.Begin(mList.LineCount(), mList.LineSelectedNum());
    ShowAll();
}

void c_Editor::ShowAll() {
    const int count = mList.LineCount();
    QString songs = count == 1 ? QStringLiteral("1 song")
                               : QStringLiteral("%1 songs").arg(QLocale().toString(count));
    const QString& progress = mFilling.Progress();
    if (count == 0 && progress.isEmpty())
        songs = QStringLiteral("Add files or a directory");
    mList.SetSubHeader(songs + u'\\' +
                       (progress.isEmpty()
                            ? QString(u'\\')
                            : platform::EscapeSeparators(QStringLiteral("Reading ") + progress) +
                                  QStringLiteral("\\Escape stops")));
    if (progress.isEmpty() && std::exchange(mAnnounced, songs) != songs)
        mForm.Announce(songs);
    const bool unsaved = mSongs.Unsaved();
    mForm.ShowName(unsaved || !mSongs.File().empty() ? mSongs.Name() : QString(), unsaved);
    if (!mKeepSoon.isActive() && mForm.isVisible())
        mKeepSoon.start();
    mList.Refresh();
}

void c_Editor::mList_LineDoubleClicked(int) { bEdit_Clicked(); }

void c_Editor::mList_LinePrint(ListCell& cell) {
    constexpr ColorRef kMarked = Rgb(255, 50, 50);
    constexpr ColorRef kMissing = Rgb(140, 140, 165);
    constexpr ColorRef kNewer = Rgb(160, 190, 255);
    if (mMarks.Has(cell.line))
        cell.color = kMarked;
    else if (mSongs.IsMissing(mList.LineKey(cell.line)))
        cell.color = kMissing;
    else if (cell.column > 0 && mSongs.IsNewer(mList.LineKey(cell.line)))
        cell.color = kNewer;
}

void c_Editor::mList_LineSelChanged(int line) {
    mList.MoveSelection(mMarks.Select(line, {mList.mRangeKey, mList.mAddKey, mList.mByKeyboard}));
}

void c_Editor::mList_LinesMoveWanted(const std::vector<int>& lines, int before) {
    const std::vector<int> order = mList.MoveLines(lines, before);
    mSongs.Reordered(lines.size() == 1 ? QStringLiteral("Move a song")
                                       : QStringLiteral("Move %1 songs").arg(lines.size()),
                     order);
    mMarks.Reorder(order);
    ShowAll();
}

void c_Editor::MarkAll() {
    mMarks.MarkAll();
    mList.Refresh();
}

void c_Editor::mList_LineRightClicked(int, QPoint place) {
    const auto named = [](const char* what, const QString& step) {
        return QLatin1String(what) + (step.isEmpty() ? QString() : u' ' + step);
    };
    const auto call = [this](void (c_Editor::*act)()) { return [this, act] { (this->*act)(); }; };
    const QPoint at = FromLogical(QRect(place, QSize(1, 1))).topLeft();
    PopUpMenu(
        *mForm.pList, mForm.mapToGlobal(at),
        {{QStringLiteral("Play"), QStringLiteral("Space"), call(&c_Editor::bPlay_Clicked)},
         {QStringLiteral("Edit"), QStringLiteral("F2"), call(&c_Editor::bEdit_Clicked)},
         {QStringLiteral("Remove"), QStringLiteral("Del"), call(&c_Editor::bRemove_Clicked)},
         {QStringLiteral("Show in folder"), {}, [this] { platform::ShowInFolder(SelectedSong()); }},
         {QStringLiteral("Find missing"),
          {},
          call(&c_Editor::FindMissing),
          !mSongs.Missing().empty()},
         {},
         {named("Undo", mSongs.UndoName()), QStringLiteral("Ctrl+Z"), call(&c_Editor::Undo),
          !mSongs.UndoName().isEmpty()},
         {named("Redo", mSongs.RedoName()), QStringLiteral("Ctrl+Y"), call(&c_Editor::Redo),
          !mSongs.RedoName().isEmpty()}});
}

/// Stops what is being read, or leaves the box that finds songs; false if there is neither.
bool c_Editor::Escape() {
    if (mFilling.Busy()) {
        StopReading();
        return true;
    }
    if (!mForm.tFind->hasFocus())
        return false;
    mForm.tFind->clear();
    mForm.pList->setFocus();
    return true;
}

/// Keys that mean something else here than to the list, the box or the form; false for others.
bool c_Editor::Key(const QObject* where, const QKeyEvent& event) {
    const int key = event.key();
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    if (where == &mForm)
        return key == Qt::Key_Escape && Escape();
    if (where == mForm.tFind) {
        const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (enter)
            FindNext(shift ? -1 : 1);
        return enter;
    }
    const bool plays = key == Qt::Key_Space && event.modifiers() == Qt::NoModifier;
    if (plays && !event.isAutoRepeat())
        bPlay_Clicked();
    return plays;
}

bool c_Editor::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        return Key(watched, *static_cast<QKeyEvent*>(event));
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
        auto& drop = *static_cast<QDropEvent*>(event);
        if (watched != &mForm || !mForm.isEnabled() || !drop.mimeData()->hasUrls())
            return false;
        drop.setDropAction(Qt::CopyAction);
        drop.accept();
        if (event->type() == QEvent::Drop)
            Drop(drop);
        return true;
    }
    default:
        return false;
    }
}
