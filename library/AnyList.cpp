#include "library/AnyList.h"

#include "library/PlaylistFormat.h"
#include "library/SongFinder.h"
#include "library/c_M3U.h"
#include "platform/File.h"

#include <QByteArray>
#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <string>

namespace library {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 3> kEndings = {".m3u", ".m3u8", ".pls"};
constexpr std::string_view kBlanks = " \t\x1A"; // \x1A: end of file, in old texts

std::string_view ViewOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

bool StartsWith(std::string_view text, std::string_view start) {
    return QByteArrayView(text.substr(0, start.size())).compare(start, Qt::CaseInsensitive) == 0;
}

bool EndsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && StartsWith(text.substr(text.size() - end.size()), end);
}

/// Removes a byte order mark from `bytes` and converts them from UTF-16 to UTF-8 if it says so.
/// Returns whether there was one.
bool TakeByteOrderMark(QByteArray& bytes) {
    const auto encoding = QStringConverter::encodingForData(bytes);
    if (!encoding || !(bytes.startsWith("\xEF\xBB\xBF") || bytes.startsWith("\xFF\xFE") ||
                       bytes.startsWith("\xFE\xFF")))
        return false;
    if (*encoding == QStringConverter::Utf8)
        bytes.remove(0, 3);
    else
        bytes = QString(QStringDecoder(*encoding)(bytes)).toUtf8();
    return true;
}

/// Takes the next line of `text`, whatever it ends with, without the blanks around it.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    return line.substr(0, line.find_last_not_of(kBlanks) + 1);
}

/// The file that a line "File1=..." of a PLS list names; empty for other lines.
std::string_view FileOfPls(std::string_view line) {
    constexpr std::string_view kKey = "File";
    const std::size_t equals = line.find('=');
    return StartsWith(line, kKey) && equals != line.npos ? line.substr(equals + 1)
                                                         : std::string_view();
}

void AddForeign(std::string_view text, bool pls, const fs::path& folder, c_M3U& list,
                const std::stop_token& stop) {
    SongFinder finder(folder);
    while (!text.empty() && !stop.stop_requested()) {
        const std::string_view line = TakeLine(text);
        const std::string_view entry = pls ? FileOfPls(line) : line;
        if (entry.empty() || (!pls && entry.front() == '#'))
            continue;
        if (const auto song = finder.Find(entry))
            list.Add(*song);
    }
}

} // namespace

ListRead ReadAnyList(const fs::path& file, c_M3U& list, const std::stop_token& stop) {
    QByteArray bytes;
    if (const std::error_code error = platform::ReadWholeFile(file, bytes)) {
        const bool none = error == std::errc::no_such_file_or_directory;
        return {none ? list.ReadFile(file, stop) : error, false};
    }
    const std::string name = file.filename().string();
    const bool marked = TakeByteOrderMark(bytes);
    const std::string_view text = ViewOf(bytes);
    const bool pls = EndsWith(name, ".pls") || StartsWith(text, "[playlist]");
    const bool own =
        !marked && !pls && !EndsWith(name, ".m3u8") && !PlaylistReader::FindsForeign(text);
    if (own)
        return {list.ReadFile(file, stop), false};
    if (!IsPlaylistText(text))
        return {make_error_code(std::errc::illegal_byte_sequence), true};
    std::error_code ignored;
    AddForeign(text, pls, fs::absolute(file, ignored).parent_path(), list, stop);
    if (stop.stop_requested())
        return {make_error_code(std::errc::operation_canceled), true};
    return {{}, true};
}

QString ListPatterns() {
    QString patterns;
    for (const std::string_view ending : kEndings)
        patterns += QStringLiteral(" *") + QLatin1String(ending.data());
    return patterns.mid(1);
}

bool HasListName(std::string_view file) {
    return std::any_of(kEndings.begin(), kEndings.end(),
                       [file](std::string_view ending) { return EndsWith(file, ending); });
}

} // namespace library
