#include "editor/SongReading.h"

#include "library/AnyList.h"
#include "library/SongScan.h"
#include "library/c_M3U.h"
#include "platform/Text.h"

#include <QHash>
#include <QSet>
#include <algorithm>

namespace editor {

namespace fs = std::filesystem;

namespace {

QString WithoutLastFour(const QString& name) {
    constexpr qsizetype kEnding = 4; // ".mp3"
    return name.left(std::max<qsizetype>(0, name.size() - kEnding));
}

Line LineWith(const fs::path& song, const QString& title, const QString& artist, bool newer) {
    const QString name = platform::AfterLastSeparator(platform::ShownText(song));
    return {platform::EscapeSeparators(WithoutLastFour(name)) + u'\\' +
                platform::EscapeSeparators(title) + u'\\' + platform::EscapeSeparators(artist),
            platform::KeyFromPath(song), newer};
}

Line TaggedLine(const fs::path& song, const library::SongTag& tag) {
    return LineWith(song, tag.Title(), tag.Artist(), tag.IsNewer());
}

bool ReadSong(SongStream& stream, const fs::path& song) {
    library::SongTag tag;
    tag.Read(song);
    Line line = TaggedLine(song, tag);
    std::error_code error;
    line.missing = !fs::is_regular_file(song, error);
    return stream.Put(std::move(line));
}

/// False if it was stopped.
bool ScanFolder(SongStream& stream, const fs::path& folder) {
    bool goOn = true;
    library::ScanSongs(folder, {[&](const fs::path& entered) {
                                    return goOn = stream.Tell(platform::ShownText(entered));
                                },
                                [&](const fs::path& song, const library::SongTag& tag) {
                                    return goOn = stream.Put(TaggedLine(song, tag));
                                }});
    return goOn;
}

bool ReadSongs(SongStream& stream, const std::vector<fs::path>& songs, const QString& name) {
    bool goOn = true;
    for (std::size_t i = 0; goOn && i < songs.size(); ++i)
        goOn = stream.Tell(QStringLiteral("%1 of %2, %3").arg(i + 1).arg(songs.size()).arg(name)) &&
               ReadSong(stream, songs[i]);
    return goOn;
}

/// A list's songs by absolute paths: relative ones in it start from its own folder.
std::vector<fs::path> SongsOf(SongStream& stream, const fs::path& file) {
    c_M3U playlist;
    library::ListRead read{make_error_code(std::errc::no_such_file_or_directory)};
    std::error_code error;
    if (fs::exists(file, error)) // reading would create it
        read = library::ReadAnyList(file, playlist);
    if (read.error)
        stream.Fail(c_M3U::ReadFailure(file, read.error));
    if (read.foreign)
        stream.BeForeign();
    std::vector<fs::path> songs;
    songs.reserve(static_cast<std::size_t>(playlist.Count()));
    for (int song = 0; song < playlist.Count(); ++song)
        songs.push_back(file.parent_path() / playlist.FileName(song));
    return songs;
}

bool ReadList(SongStream& stream, const fs::path& file) {
    return ReadSongs(stream, SongsOf(stream, file), platform::ShownText(file.filename()));
}

bool EndsWith(const fs::path& file, const char* ending) {
    return platform::ShownText(file).endsWith(QLatin1String(ending), Qt::CaseInsensitive);
}

QString NameWithoutCase(const fs::path& file) {
    return platform::TextFromPath(file.filename()).toCaseFolded();
}

} // namespace

Line LineOf(const SongFacts& song) {
    Line line =
        LineWith(song.path, song.ShownTitle(), song.ShownArtist(), !song.newerTitle.isEmpty());
    line.missing = song.missing;
    return line;
}

Reading ReadFolder(const fs::path& folder) {
    return [folder](SongStream& stream) { ScanFolder(stream, folder); };
}

Reading ReadFiles(std::vector<fs::path> songs) {
    return [songs = std::move(songs)](SongStream& stream) {
        ReadSongs(stream, songs, QStringLiteral("files"));
    };
}

Reading ReadPlaylist(const fs::path& file) {
    return [file](SongStream& stream) { ReadList(stream, file); };
}

std::optional<KeyPrint> PrintOf(const fs::path& file) {
    SongStream stream;
    std::optional<KeyPrint> print;
    for (const fs::path& song : SongsOf(stream, file)) {
        if (!print)
            print.emplace();
        print->Add(platform::KeyFromPath(song));
    }
    return print;
}

Reading ReadDropped(std::vector<fs::path> dropped) {
    return [dropped = std::move(dropped)](SongStream& stream) {
        bool goOn = true;
        for (auto path = dropped.begin(); goOn && path != dropped.end(); ++path) {
            std::error_code error;
            if (fs::is_directory(*path, error))
                goOn = ScanFolder(stream, *path);
            else if (library::HasListName(path->native()))
                goOn = ReadList(stream, *path);
            else if (EndsWith(*path, ".mp3"))
                goOn = ReadSong(stream, *path);
        }
    };
}

Reading FindByName(const fs::path& folder, const std::vector<QString>& keys) {
    QSet<QString> names;
    for (const QString& key : keys)
        names.insert(NameWithoutCase(platform::PathFromKey(key)));
    return [folder, names](SongStream& stream) {
        library::ScanSongs(
            folder,
            {[&](const fs::path& entered) { return stream.Tell(platform::ShownText(entered)); },
             [&](const fs::path& song, const library::SongTag& tag) {
                 return !names.contains(NameWithoutCase(song)) || stream.Put(TaggedLine(song, tag));
             }});
    };
}

std::vector<std::pair<QString, Line>> MatchByName(const std::vector<QString>& keys,
                                                  const std::vector<Line>& found) {
    QHash<QString, const Line*> byName;
    for (const Line& line : found) {
        const QString name = NameWithoutCase(platform::PathFromKey(line.key));
        if (!byName.contains(name))
            byName.insert(name, &line);
    }
    std::vector<std::pair<QString, Line>> matches;
    for (const QString& key : keys)
        if (const Line* line = byName.value(NameWithoutCase(platform::PathFromKey(key))))
            matches.emplace_back(key, *line);
    return matches;
}

} // namespace editor
