#include "library/MarkJournal.h"

#include "library/PlaylistFormat.h"
#include "platform/File.h"
#include "platform/ProgramFolder.h"

#include <QCryptographicHash>
#include <utility>

namespace library {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kNewCycle = "#New cycle\r\n";

/// The name tells lists apart, wherever they lie and however long their paths are.
fs::path JournalOf(const fs::path& list) {
    std::error_code error;
    const std::string path = fs::absolute(list, error).lexically_normal().string();
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha1).toHex();
    return platform::ProgramFolder() / "PlayList" / (".played-" + hash.toStdString() + ".m3u");
}

} // namespace

MarkJournal::MarkJournal(const fs::path& list) : mFile(JournalOf(list)) {}

MarkJournal::Marks MarkJournal::Read() const {
    QByteArray bytes;
    Marks marks;
    if (platform::ReadWholeFile(mFile, bytes))
        return marks;
    marks.newCycle = bytes.startsWith(QByteArrayView(kNewCycle));
    PlaylistReader reader({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    while (const auto entry = reader.Next())
        marks.played.insert(std::string(entry->path));
    return marks;
}

void MarkJournal::Played(const fs::path& song) {
    std::string lines;
    AppendEntry(lines, {song.native(), 1});
    mWorker.Do([file = mFile, lines = std::move(lines)] { platform::AppendToFile(file, lines); });
}

void MarkJournal::NewCycle() {
    mWorker.Do([file = mFile] { platform::ReplaceFile(file, QByteArrayView(kNewCycle)); });
}

void MarkJournal::Discard() {
    mWorker.Do([file = mFile] { platform::RemoveFile(file); });
}

} // namespace library
