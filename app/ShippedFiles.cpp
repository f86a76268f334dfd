#include "app/ShippedFiles.h"

#include "app/f_Load.h"
#include "platform/Aside.h"
#include "platform/File.h"
#include "platform/Message.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"
#include "platform/Wait.h"

#include <QTimer>
#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>

namespace app {

namespace fs = std::filesystem;

namespace {

// Lists the files that were copied; written once all of them are there.
constexpr const char* kRecord = ".shipped";

constexpr const char* kFolders[] = {"Music", "PlayList"};

/// What tells that a file is untouched. A copy has the stamp of the file that it was made from.
struct Stamp {
    std::int64_t seconds = 0;
    std::uintmax_t size = 0;
    bool operator==(const Stamp&) const = default;
};

std::optional<Stamp> StampOf(const fs::path& file) {
    std::error_code error;
    const auto time = fs::last_write_time(file, error);
    if (error)
        return std::nullopt;
    const std::uintmax_t size = fs::file_size(file, error);
    if (error)
        return std::nullopt;
    return Stamp{std::chrono::floor<std::chrono::seconds>(time.time_since_epoch()).count(), size};
}

/// The files that were copied, by their place in the folder; in the file, lines of seconds, size
/// and place.
using Record = std::map<std::string, Stamp>;

Record ReadRecord(const fs::path& file) {
    QByteArray bytes;
    platform::ReadWholeFile(file, bytes);
    std::istringstream lines(bytes.toStdString());
    Record record;
    Stamp stamp;
    for (std::string place;
         lines >> stamp.seconds >> stamp.size && lines.ignore() && std::getline(lines, place);)
        record[place] = stamp;
    return record;
}

std::error_code WriteRecord(const fs::path& file, const Record& record) {
    std::ostringstream lines;
    for (const auto& [place, stamp] : record)
        lines << stamp.seconds << ' ' << stamp.size << ' ' << place << '\n';
    return platform::ReplaceFile(file, QByteArray::fromStdString(lines.str()));
}

/// Copies a file to where there is none, or over an untouched copy; whole or not at all.
std::error_code Give(const fs::path& from, const fs::path& to) {
    // Always the same name, so that a killed program leaves nothing that the next start does not
    // tidy up.
    const fs::path unfinished = to.parent_path() / ".songrush-copy.tmp";
    std::error_code error;
    fs::remove(unfinished, error);
    fs::copy_file(from, unfinished, error);
    if (!error)
        error = platform::ClearReadOnly(unfinished);
    if (!error)
        fs::last_write_time(unfinished, fs::last_write_time(from, error), error);
    if (!error) {
        platform::FlushToDisk(unfinished);
        fs::rename(unfinished, to, error);
    }
    std::error_code ignored;
    fs::remove(unfinished, ignored);
    return error;
}

std::set<fs::path> FilesIn(const fs::path& folder, std::error_code& error) {
    std::set<fs::path> files;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        files.insert(entry->path());
    return files;
}

/// Copies the files of one folder, and notes them in `record`.
std::error_code BringFolder(const fs::path& shipped, const fs::path& own, const char* folder,
                            Record& record) {
    std::error_code error;
    fs::create_directories(own / folder, error);
    if (error)
        return error;
    const std::set<fs::path> files = FilesIn(shipped / folder, error);
    if (error)
        return error;
    for (const fs::path& file : files) {
        const std::string place = std::string(folder) + '/' + file.filename().string();
        const std::optional<Stamp> stamp = StampOf(file);
        const auto given = record.find(place);
        if (!stamp || (given != record.end() && given->second == *stamp))
            continue;
        const std::optional<Stamp> there = StampOf(own / place);
        const bool wanted = given == record.end() ? !there : there == given->second;
        if (wanted)
            error = Give(file, own / place);
        if (error)
            return error;
        record[place] = *stamp;
    }
    return {};
}

/// Shows the waiting window if there is a wait. Closing it leaves the program.
class WaitingSign {
public:
    WaitingSign() {
        mSoon.setSingleShot(true);
        mSoon.callOnTimeout([this] {
            QObject::connect(&mForm.emplace(), &f_Load::CloseRequested, platform::RequestQuit);
            mForm->ShowLoading();
        });
        mSoon.start(kSoon);
    }

private:
    static constexpr std::chrono::milliseconds kSoon{200};
    QTimer mSoon;
    std::optional<f_Load> mForm;
};

/// Returns no error if the program was asked to quit meanwhile.
std::error_code BringAside(const fs::path& shipped, const fs::path& own) {
    const WaitingSign sign;
    const auto error = std::make_shared<std::error_code>();
    const auto bring = [=] { *error = BringShippedFiles(shipped, own); };
    return platform::AwaitAside(bring) ? *error : std::error_code();
}

QString Reason(const fs::path& folder, const std::error_code& error) {
    return platform::ShownText(folder) + QStringLiteral(":\n") +
           QString::fromStdString(error.message());
}

} // namespace

std::error_code BringShippedFiles(const fs::path& shipped, const fs::path& own) {
    const Record before = ReadRecord(own / kRecord);
    Record record = before;
    std::error_code error;
    fs::create_directories(own / "Images", error);
    for (const char* folder : kFolders) {
        if (!error)
            error = BringFolder(shipped, own, folder, record);
    }
    if (error || record == before)
        return error;
    for (const char* folder : kFolders)
        platform::FlushToDisk(own / folder);
    return WriteRecord(own / kRecord, record);
}

void PrepareProgramFolder() {
    const fs::path own = platform::ProgramFolder();
    const fs::path shipped = platform::ShippedFolder();
    if (own == shipped)
        return;
    const std::error_code failure = BringAside(shipped, own);
    if (!failure)
        return;
    std::error_code error;
    if (fs::exists(own / kRecord, error)) {
        platform::ShowMessage(QStringLiteral("The new sample songs cannot be copied to ") +
                                  Reason(own, failure),
                              platform::Icon::Warning);
        return;
    }
    platform::SetProgramFolder(shipped);
    platform::ShowMessage(
        QStringLiteral("Songrush cannot keep its files in ") + Reason(own, failure) +
            QStringLiteral(
                "\nYou can play the sample songs, but scores and playlists are not kept."),
        platform::Icon::Warning);
}

} // namespace app
