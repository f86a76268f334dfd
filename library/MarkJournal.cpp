#include "library/MarkJournal.h"

#include "library/PlaylistFormat.h"
#include "library/SongFolders.h"
#include "platform/File.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QFileInfo>
#include <utility>

namespace library {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kNewCycle = "#New cycle\r\n";

/// A file name that tells lists apart, however long their paths are. For a list in the program's
/// folder it stays the same when that folder is moved.
std::string NameOf(const fs::path& list) {
    const fs::path within = list.lexically_proximate(platform::ProgramFolder());
    const bool inside = *within.begin() != "..";
    const std::string path = (inside ? within : list).lexically_normal().string();
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha1).toHex();
    return ".played-" + hash.toStdString() + ".m3u";
}

/// Where playlists are kept, or the user's cache if nothing can be written there.
fs::path Folder() {
    const bool writable = QFileInfo(platform::TextFromPath(PlaylistFolder())).isWritable();
    return writable ? PlaylistFolder() : platform::CacheFolder();
}

fs::path FileToWrite(const std::string& name) {
    std::error_code error;
    fs::create_directories(PlaylistFolder(), error);
    return Folder() / name;
}

} // namespace

void MarkJournal::Forget(const fs::path& list) {
    std::error_code ignored;
    fs::remove(MarkJournal(list).File(), ignored);
}

MarkJournal::MarkJournal(const fs::path& list) : mName(NameOf(list)) {}

fs::path MarkJournal::File() const { return Folder() / mName; }

MarkJournal::Marks MarkJournal::Read() const {
    QByteArray bytes;
    Marks marks;
    if (platform::ReadWholeFile(File(), bytes))
        return marks;
    marks.newCycle = bytes.startsWith(QByteArrayView(kNewCycle));
    PlaylistReader reader({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    while (const auto entry = reader.Next())
        marks.played.insert(std::string(entry->path));
    return marks;
}

void MarkJournal::Played(const fs::path& song) {
    std::string lines;
    AppendEntry(lines, {song.string(), 1});
    mWorker.Do([name = mName, lines = std::move(lines)] {
        platform::AppendToFile(FileToWrite(name), lines);
    });
}

void MarkJournal::NewCycle() {
    mWorker.Do(
        [name = mName] { platform::ReplaceFile(FileToWrite(name), QByteArrayView(kNewCycle)); });
}

void MarkJournal::Discard() {
    mWorker.Do([name = mName] {
        std::error_code ignored;
        fs::remove(Folder() / name, ignored);
    });
}

} // namespace library
