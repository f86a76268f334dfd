#include "editor/c_Editor.h"

#include "editor/ColumnSettings.h"
#include "library/MarkJournal.h"
#include "library/SongFolders.h"
#include "library/SongTitle.h"
#include "library/c_ID3.h"
#include "library/c_M3U.h"
#include "platform/Message.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "toolkit/SelectFolder.h"
#include "toolkit/cDialog.h"

#include <QApplication>
#include <QLocale>
#include <algorithm>
#include <utility>

using namespace toolkit;

namespace fs = std::filesystem;

namespace {

const QString kTitle = QStringLiteral("Mp3 Editor");

void Tell(const QString& text) { platform::ShowMessage(text, platform::Icon::Information, kTitle); }

QString WithoutLastFour(const QString& name) {
    constexpr qsizetype kEnding = 4; // ".mp3"
    return name.left(std::max<qsizetype>(0, name.size() - kEnding));
}

QString LineOf(const editor::SongFacts& song) {
    const QString name = platform::AfterLastSeparator(platform::ShownText(song.path));
    return platform::EscapeSeparators(WithoutLastFour(name)) + u'\\' +
           platform::EscapeSeparators(song.title) + u'\\' + platform::EscapeSeparators(song.artist);
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

/// The songs of a playlist; what cannot be read is told and has none. Relative paths are made
/// absolute, for the current folder changes with every dialog.
std::vector<fs::path> SongsOf(const fs::path& file) {
    c_M3U playlist;
    if (const std::error_code error = playlist.ReadFile(file))
        Tell(c_M3U::ReadFailure(file, error));
    std::vector<fs::path> songs;
    songs.reserve(static_cast<std::size_t>(playlist.Count()));
    std::error_code ignored;
    for (int song = 0; song < playlist.Count(); ++song)
        songs.push_back(fs::absolute(playlist.FileName(song), ignored));
    return songs;
}

QString WithPlaylistEnding(const QString& name) {
    const QString ending = QStringLiteral(".m3u");
    return name.endsWith(ending, Qt::CaseInsensitive) ? name : name + ending;
}

} // namespace

c_Editor::c_Editor()
    : mWindowButtons(mForm),
      mFilling({[this](const fs::path& song, const c_ID3& tag) { AddSong(song, tag); },
                [this] { ShowAll(); },
                [this] { return mForm.isVisible() && !platform::Quitting(); }}) {
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
    Connect();
}

c_Editor::~c_Editor() { mForm.hide(); }

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
    connect(&mList, &c_PicList::LinesMoveWanted, this, &c_Editor::mList_LinesMoveWanted);
    connect(&mList, &c_PicList::RemoveWanted, this, &c_Editor::bRemove_Clicked);
    connect(&mList, &c_PicList::SelectAllWanted, this, &c_Editor::MarkAll);
}

void c_Editor::SetExitToPlay() { bMenu.SetCaption(QStringLiteral("Play Game")); }

void c_Editor::Run() {
    ExitProgram = true;
    mForm.ShowInPlace();
    mWindowButtons.Refresh();
    ShowAll();
    mForm.pList->setFocus();
    platform::WaitWhile([this] { return mForm.isVisible(); });
}

void c_Editor::bAddFile_Clicked() {
    std::error_code ignored;
    fs::current_path(library::LastMp3Folder(), ignored);
    const QString answer =
        cDialog::GetOpenName(QStringLiteral("Select an Mp3"), QStringLiteral("Mp3s"),
                             QStringLiteral("*.mp3"), QString(), true);
    if (answer.trimmed().isEmpty())
        return;
    library::SetLastMp3Folder(fs::current_path(ignored));
    for (const fs::path& song : ChosenFiles(answer))
        AddSong(song);
    ShowAll();
}

void c_Editor::bAddDir_Clicked() {
    const fs::path folder = platform::PathFromText(
        BrowseForFolder(&mForm, QStringLiteral("Add Folder"), library::LastMp3Folder()));
    if (folder.empty())
        return;
    library::SetLastMp3Folder(folder);
    AddFolder(folder);
}

void c_Editor::AddSong(const fs::path& song, const c_ID3& tag) {
    mList.AddItem(LineOf({song, tag.Title(), tag.Artist(), {}}), platform::KeyFromPath(song));
    mMarks.SetLineCount(mList.LineCount());
}

void c_Editor::AddSong(const fs::path& song) {
    c_ID3 tag;
    tag.GetIdTag(song);
    AddSong(song, tag);
}

void c_Editor::ShowAll() {
    const int count = mList.LineCount();
    QString songs = count == 1 ? QStringLiteral("1 song")
                               : QStringLiteral("%1 songs").arg(QLocale().toString(count));
    const QString& source = mFilling.Reading();
    if (count == 0 && source.isEmpty())
        songs = QStringLiteral("Add files or a directory");
    const QString reading = source.isEmpty() ? QString() : QStringLiteral("Adding ") + source;
    mList.SetSubHeader(songs + u'\\' + platform::EscapeSeparators(reading) + u'\\');
    if (source.isEmpty() && std::exchange(mAnnounced, songs) != songs)
        mForm.Announce(songs);
    mList.Refresh();
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

void c_Editor::bEdit_Clicked() {
    if (mEdit.isVisible() || TellIfNoneSelected())
        return;
    mEdit.Run(SelectedSong());
    if (mEdit.Cancelled)
        return;
    ShowChange(mEdit.Change());
    if (const QString problems = editor::ProblemsOf({mEdit.Change()}); !problems.isEmpty())
        Tell(problems);
}

void c_Editor::ShowChange(const editor::SongChange& change) {
    const QString before = platform::KeyFromPath(change.before.path);
    const QString after = platform::KeyFromPath(change.after.path);
    const QString text = LineOf(change.after);
    for (int line = 0; line < mList.LineCount(); ++line) {
        if (mList.LineKey(line) != before)
            continue;
        mList.SetLineText(line, text);
        mList.SetLineKey(line, after);
    }
    ShowAll();
}

void c_Editor::bPlay_Clicked() {
    if (TellIfNoneSelected())
        return;
    mPlayer.OpenFile(SelectedSong());
    mPlayer.Show();
}

void c_Editor::bRemove_Clicked() {
    if (mList.LineCount() == 0)
        return;
    const int selected = mList.LineSelectedNum();
    // Downwards, so that the numbers of the lines still to be looked at stay right.
    for (int line = mList.LineCount() - 1; line >= 0; --line)
        if (line == selected || mMarks.Has(line))
            mList.RemoveLine(line);
    mMarks.Begin(mList.LineCount(), mList.LineSelectedNum());
    ShowAll();
}

void c_Editor::bSave_Clicked() {
    if (mList.LineCount() == 0) {
        Tell(QStringLiteral("Nothing to save."));
        return;
    }
    if (!mFilling.Reading().isEmpty()) {
        Tell(QStringLiteral("Songs are still being added."));
        return;
    }
    std::error_code ignored;
    fs::create_directories(library::PlaylistFolder(), ignored);
    ChangeToFolder(library::PlaylistFolder());
    const QString answer = cDialog::GetSaveName(
        QStringLiteral("Save Playlist"), QStringLiteral("PlayList Files"), QStringLiteral("*.m3u"));
    if (answer.isEmpty())
        return;
    if (UntitledSongs())
        platform::ShowMessage(
            QStringLiteral("Warning, This playlist contains MP3s that do not have song titles "
                           "set.\n"
                           "If used for a game, the filename will be used for the song title."),
            platform::Icon::Warning);
    c_M3U playlist;
    for (int line = 0; line < mList.LineCount(); ++line)
        playlist.Add(platform::PathFromKey(mList.LineKey(line)));
    const fs::path file = platform::PathFromText(WithPlaylistEnding(answer));
    if (playlist.WriteFile(file))
        library::MarkJournal::Forget(file);
    platform::PumpEvents();
}

bool c_Editor::UntitledSongs() const {
    for (int line = 0; line < mList.LineCount(); ++line) {
        const QStringList columns = mList.LineText(line).split(u'\\');
        if (columns.size() > 1 && !library::HasVisible(platform::UnescapeSeparators(columns[1])))
            return true;
    }
    return false;
}

void c_Editor::bLoad_Clicked() {
    ChangeToFolder(library::PlaylistFolder());
    const QString answer =
        cDialog::GetOpenName(QStringLiteral("Load Playlist"), QStringLiteral("Playlist Files"),
                             QStringLiteral("*.m3u"), QString(), false);
    if (answer.trimmed().isEmpty())
        return;
    const fs::path file = platform::PathFromText(answer);
    const std::vector<fs::path> songs = SongsOf(file);
    if (songs.empty())
        return;
    mList.ClearLines();
    mMarks.Begin(0, -1);
    mFilling.Load(platform::ShownText(file.filename()), songs);
}

void c_Editor::bMenu_Clicked() {
    ExitProgram = false;
    mForm.hide();
}

void c_Editor::bX_Clicked() { mForm.hide(); }

void c_Editor::bMin_Clicked() { mForm.Minimise(); }

void c_Editor::mList_HeaderSelClicked(int column) {
    QApplication::beep();
    mMarks.Reorder(mList.SortByHeader(column, mSortMode == 1 ? 2 : 0));
    mSortMode = mSortMode == 1 ? 0 : 1;
    ShowAll();
    mForm.Announce(QStringLiteral("Sorted by %1, %2")
                       .arg(mList.HeaderText(column), mList.IsSortedDownwards()
                                                          ? QStringLiteral("descending")
                                                          : QStringLiteral("ascending")));
}

void c_Editor::mList_LineDoubleClicked(int) { bEdit_Clicked(); }

void c_Editor::mList_LinePrint(ListCell& cell) {
    constexpr ColorRef kMarked = Rgb(255, 50, 50);
    if (mMarks.Has(cell.line))
        cell.color = kMarked;
}

void c_Editor::mList_LineSelChanged(int line) {
    mList.MoveSelection(mMarks.Select(line, {mList.mRangeKey, mList.mAddKey, mList.mByKeyboard}));
}

void c_Editor::mList_LinesMoveWanted(const std::vector<int>& lines, int before) {
    mMarks.Reorder(mList.MoveLines(lines, before));
}

void c_Editor::MarkAll() {
    mMarks.MarkAll();
    mList.Refresh();
}
