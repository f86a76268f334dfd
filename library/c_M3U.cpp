#include "library/c_M3U.h"

#include "library/PlaylistFormat.h"
#include "platform/Chance.h"
#include "platform/File.h"
#include "platform/Message.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"
#include "platform/Time.h"

#include <QLoggingCategory>
#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(Log, "songrush.library", QtInfoMsg)

std::string_view ViewOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

QString Reason(std::error_code error) { return QString::fromLocal8Bit(error.message().c_str()); }

} // namespace

c_M3U::~c_M3U() { WriteBack(); }

void c_M3U::Add(const std::filesystem::path& song) {
    const std::string bytes = song.string();
    mFiles.push_back({ViewOf(mText).size(), bytes.size()});
    mPlayed.push_back(0);
    mOrder.push_back(0);
    mText.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

std::string_view c_M3U::Bytes(std::size_t index) const {
    return ViewOf(mText).substr(mFiles[index].begin, mFiles[index].size);
}

std::filesystem::path c_M3U::FileName(int index) const {
    if (index < 0 || index >= Count())
        return {};
    return std::filesystem::path(Bytes(static_cast<std::size_t>(index)));
}

int c_M3U::TakeUnplayed() {
    if (Count() == 0)
        return -1;
    while (true) {
        if (mCursor > Count() - 1) {
            qCDebug(Log) << "All Played, reseting..";
            mCursor = 0;
            ClearAllPlayed();
            RandomizeList();
        }
        for (; mPlayedUpTo < Count(); ++mPlayedUpTo) {
            const std::int32_t song = mOrder[static_cast<std::size_t>(mPlayedUpTo)];
            std::int16_t& played = mPlayed[static_cast<std::size_t>(song)];
            if (played == 0) {
                played = 1;
                return song;
            }
        }
        mCursor = Count();
    }
}

void c_M3U::RandomizeList() {
    platform::Randomize(platform::SecondsSinceMidnight());
    mPlayedUpTo = 0;
    std::iota(mOrder.begin(), mOrder.end(), 0);
    // Each place is swapped with a random one, in three passes.
    for (int pass = 0; pass < 3; ++pass) {
        for (std::int32_t& place : mOrder) {
            const double other = platform::Rnd() * Count();
            std::swap(place, mOrder[static_cast<std::size_t>(other)]);
        }
    }
}

void c_M3U::ClearAllPlayed() {
    mPlayedUpTo = 0;
    std::fill(mPlayed.begin(), mPlayed.end(), std::int16_t{0});
}

void c_M3U::SetMarks(const std::vector<std::int16_t>& marks) {
    mPlayedUpTo = 0;
    mPlayed = marks;
}

std::error_code c_M3U::ReadFile(const std::filesystem::path& file, const std::stop_token& stop) {
    qCDebug(Log) << "Reading M3u";
    mFileName = file;
    mFiles.clear();
    mPlayed.clear();
    mOrder.clear();
    mPlayedUpTo = 0;
    std::error_code error = platform::ReadWholeFile(file, mText);
    if (error == std::errc::no_such_file_or_directory)
        error = platform::ReplaceFile(file, {});
    if (!error && !library::IsPlaylistText(ViewOf(mText)))
        error = make_error_code(std::errc::illegal_byte_sequence);
    if (error)
        return FailToRead(error);
    library::PlaylistReader reader(ViewOf(mText));
    while (const auto entry = reader.Next()) {
        if (stop.stop_requested())
            return FailToRead(make_error_code(std::errc::operation_canceled));
        const auto begin = static_cast<std::size_t>(entry->path.data() - mText.constData());
        mFiles.push_back({begin, entry->path.size()});
        mPlayed.push_back(entry->played);
    }
    mFiles.shrink_to_fit();
    mPlayed.shrink_to_fit();
    mTextRead = mText.size();
    mPlayedInFile = mPlayed;
    mOrder.assign(mFiles.size(), 0);
    qCDebug(Log) << "M3u Read";
    return {};
}

std::error_code c_M3U::FailToRead(std::error_code error) {
    qCDebug(Log) << "M3u Read Error";
    mFileName.clear();
    mText.clear();
    mFiles.clear();
    mPlayed.clear();
    mPlayedInFile.clear();
    return error;
}

QString c_M3U::ReadFailure(const std::filesystem::path& file, std::error_code error) {
    const QString name = platform::ShownText(file.filename());
    if (error == std::errc::illegal_byte_sequence)
        return QStringLiteral("%1 is not a playlist.").arg(name);
    return QStringLiteral("%1 cannot be read:\n%2").arg(name, Reason(error));
}

bool c_M3U::WriteBack() {
    const std::filesystem::path file = platform::WhereNow(std::exchange(mFileName, {}));
    if (file.empty() || mPlayed == mPlayedInFile)
        return !file.empty();
    return FileUnchanged(file) && WriteFile(file);
}

/// Whether the file still holds what was read; writing would lose what others wrote meanwhile.
bool c_M3U::FileUnchanged(const std::filesystem::path& file) const {
    QByteArray now;
    return !platform::ReadWholeFile(file, now) && now == QByteArrayView(mText).first(mTextRead);
}

bool c_M3U::WriteFile(const std::filesystem::path& file) const {
    if (Count() < 1)
        return true;
    std::string bytes;
    constexpr std::size_t kLinesAround = 16; // the mark line and the line ends of one song
    bytes.reserve(ViewOf(mText).size() + mFiles.size() * kLinesAround);
    library::AppendHeader(bytes);
    for (std::size_t i = 0; i < mFiles.size(); ++i)
        library::AppendEntry(bytes, {Bytes(i), mPlayed[i]});
    const std::error_code error = platform::ReplaceFile(file, bytes);
    if (!error)
        return true;
    platform::ShowMessage(QStringLiteral("Error Writing Playlist file:%1:\n%2")
                              .arg(platform::ShownText(file), Reason(error)));
    return false;
}
