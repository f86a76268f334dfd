// How the playlist editor loads and saves its list, and keeps it from getting lost.

#include "editor/c_Editor.h"

#include "editor/UnsavedCopy.h"
#include "library/AnyList.h"
#include "library/MarkJournal.h"
#include "library/SongFolders.h"
#include "library/SongTitle.h"
#include "library/c_M3U.h"
#include "platform/Aside.h"
#include "platform/Message.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "toolkit/SelectFolder.h"
#include "toolkit/cDialog.h"

#include <memory>
#include <utility>

using namespace toolkit;

namespace fs = std::filesystem;

namespace {

QString WithPlaylistEnding(const QString& name) {
    const QString ending = QStringLiteral(".m3u");
    return name.endsWith(ending, Qt::CaseInsensitive) ? name : name + ending;
}

} // namespace

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

/// Replaces the list, and all that was to be added to it, by a playlist. One without songs leaves
/// it as it is.
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
                 [this, file, begun](const auto& news) {
                     mLoading = false;
                     mSongs.EndAdding();
                     Tell(*begun || !news.failure.isEmpty() ? news.failure
                                                            : platform::ShownText(file.filename()) +
                                                                  QStringLiteral(" has no songs."));
                 }});
}

void c_Editor::bSave_Clicked() { SaveList(true); }

bool c_Editor::SaveList(bool askName) {
    if (mList.LineCount() == 0) {
        Tell(QStringLiteral("Nothing to save."));
        return false;
    }
    fs::path file = mSongs.File();
    if (askName || !mSongs.OwnsFile() || TellIfFileChanged()) {
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

/// Shows a message when the list's file holds other songs than it had here, and returns whether it
/// did.
bool c_Editor::TellIfFileChanged() {
    if (mSongs.SavedPrint() == editor::KeyPrint()) // kept by an earlier run of the program
        return false;
    const auto now = std::make_shared<std::optional<editor::KeyPrint>>();
    const auto look = [now, file = mSongs.File()] { *now = editor::PrintOf(file); };
    if (!Blocked([&](const auto& open) { return platform::AwaitAside(look, open); }) || !*now ||
        **now == mSongs.SavedPrint())
        return false;
    Tell(QStringLiteral("Another program has changed the file of the list \"%1\".")
             .arg(mSongs.Name()));
    return true;
}

bool c_Editor::Write(const fs::path& file) {
    const editor::KeyPrint print = mSongs.Print();
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

bool c_Editor::MayGo() {
    if (!mSongs.Unsaved())
        return true;
    const QString question =
        mSongs.File().empty()
            ? QStringLiteral("The new list is not saved.\nDo you want to save it?")
            : QStringLiteral("The list \"%1\" has changes that are not saved.\n"
                             "Do you want to save them?")
                  .arg(mSongs.Name());
    switch (platform::AskToSave(question, f_Editor::Title())) {
    case platform::SaveAnswer::Save:
        return SaveList(false);
    case platform::SaveAnswer::DontSave:
        return true;
    case platform::SaveAnswer::Cancel:
        break;
    }
    return false;
}

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
                                    f_Editor::Title())) {
                if (!platform::Quitting())
                    editor::UnsavedCopy::Discard();
                return;
            }
            mCopied.emplace();
            for (const fs::path& song : songs)
                mCopied->Add(platform::KeyFromPath(song));
            mSongs.Begin(list, foreign);
            mRestoring = true;
            ReadInto(name, editor::ReadFiles(songs));
        });
}

void c_Editor::KeepCopy() {
    if (mRestoring)
        return; // what was kept is more than what has been read so far
    const auto print = mSongs.Unsaved() ? std::optional(mSongs.Print()) : std::nullopt;
    if (print == mCopied)
        return;
    mCopied = print;
    if (mCopied)
        editor::UnsavedCopy::Keep(mSongs.File(), !mSongs.OwnsFile(), mSongs.Keys());
    else
        editor::UnsavedCopy::Discard();
}
