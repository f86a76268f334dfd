#include "editor/c_Editor.h"

#include "editor/ColumnSettings.h"
#include "editor/UnsavedCopy.h"
#include "library/SongFolders.h"
#include "platform/Aside.h"
#include "platform/Message.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "toolkit/SelectFolder.h"
#include "toolkit/cDialog.h"

#include <QApplication>
#include <QLineEdit>
#include <QLocale>
#include <QSet>
#include <algorithm>
#include <memory>
#include <utility>

using namespace toolkit;

namespace fs = std::filesystem;

namespace {

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

} // namespace

c_Editor::c_Editor()
    : mWindowButtons(mForm), mSongs(mList, [this](const auto& wishes) { return Change(wishes); }),
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

std::vector<editor::SongChange> c_Editor::Change(const std::vector<editor::SongWish>& wishes) {
    return Blocked([&](const auto& open) { return editor::ChangeAside(wishes, open); });
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
    else if (mCopied)
        editor::UnsavedCopy::Discard();
    StopReading();
}

// Leaving

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

void c_Editor::StopReading() {
    mFilling.Stop();
    mRestoring = false;
    if (std::exchange(mLoading, false))
        mSongs.ForgetFile(); // which would otherwise be replaced by a part of it
    ShowAll();
}

// What is done with songs

void c_Editor::Tell(const QString& text) {
    if (!text.isEmpty())
        platform::ShowMessage(text, platform::Icon::Information, f_Editor::Title());
}

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
        fs::path& song = series.songs[series.place];
        song = platform::PathFromKey(mEdit.Run(song, series));
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

/// Goes to a neighbour of the song in the small player, whose line may have moved.
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
    constexpr int kAtOnce = 5000; // lines; more could hold up the window
    QApplication::beep();
    const int mode = mSortMode == 1 ? 2 : 0;
    mSortMode = mSortMode == 1 ? 0 : 1;
    const auto sort = mList.Sorter(column, mode);
    if (mList.LineCount() <= kAtOnce)
        return PutSorted(column, mode, sort());
    const auto order = std::make_shared<std::vector<int>>();
    const auto find = [sort, order] { *order = sort(); };
    const int wish = ++mSortsWanted;
    platform::DoAside(this, find, [this, column, mode, order, wish, moves = mList.Moves()] {
        if (wish != mSortsWanted)
            return; // the header was clicked again meanwhile
        if (moves != mList.Moves())
            *order = mList.Sorter(column, mode)();
        PutSorted(column, mode, *order);
    });
}

/// Puts the lines into an order. Those that were appended after it was found stay at the end.
void c_Editor::PutSorted(int column, int mode, std::vector<int> before) {
    for (int line = static_cast<int>(before.size()); line < mList.LineCount(); ++line)
        before.push_back(line);
    mList.PutSorted(column, mode, before);
    mSongs.Reordered(QStringLiteral("Sort by ") + mList.HeaderText(column), before);
    mMarks.Reorder(before);
    ShowAll();
    mForm.Announce(QStringLiteral("Sorted by %1, %2")
                       .arg(mList.HeaderText(column), mList.IsSortedDownwards()
                                                          ? QStringLiteral("descending")
                                                          : QStringLiteral("ascending")));
}

void c_Editor::Undo() {
    if (mSongs.UndoName().isEmpty())
        return;
    StopReading(); // it would go on adding to what is undone
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

// What the list shows

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
