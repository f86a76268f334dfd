#include "editor/SongChange.h"

#include "editor/TitleRules.h"
#include "library/SongTag.h"
#include "platform/Aside.h"
#include "platform/File.h"
#include "platform/RegularFile.h"
#include "platform/Text.h"

#include <memory>

namespace editor {

namespace fs = std::filesystem;

namespace {

bool SameTag(const SongFacts& one, const SongFacts& other) {
    return one.title == other.title && one.artist == other.artist && one.comment == other.comment;
}

void WriteTag(const fs::path& song, const SongFacts& wanted) {
    c_ID3 tag;
    tag.TakeEnd(wanted.end); // for what stays
    tag.SetTitle(TagText(wanted.title));
    tag.SetArtist(TagText(wanted.artist));
    tag.SetComment(wanted.comment);
    tag.PutIdTag(song);
}

QString WhyNotWritten(const fs::path& song) {
    std::error_code error;
    if ((fs::status(song, error).permissions() & fs::perms::owner_write) == fs::perms::none)
        return QStringLiteral("Its tag stays as it was: the file is read-only.");
    constexpr std::uintmax_t kTag = 128;
    if (fs::file_size(song, error) < kTag)
        return QStringLiteral("It cannot be tagged: the file is too short.");
    return QStringLiteral("Its tag stays as it was: the file cannot be written.");
}

void CompareText(const char* what, const QString& wanted, const Fitting& fitting,
                 QStringList& problems) {
    const QString name = QLatin1String(what);
    if (fitting.lost)
        problems
            << QStringLiteral("A tag cannot hold all letters of the %1 \"%2\".").arg(name, wanted);
    if (fitting.Cut())
        problems << QStringLiteral("The %1 \"%2\" is too long; the tag has \"%3\".")
                        .arg(name, wanted, fitting.text);
}

void PutTagBack(SongChange& change, const QByteArray& end) {
    const fs::path& song = change.before.path;
    if (c_ID3::PutEnd(song, end))
        change.problems << WhyNotWritten(song);
    change.after = FactsOf(song);
}

void ChangeTag(SongChange& change, const SongFacts& wanted) {
    if (wanted.end != change.before.end)
        return PutTagBack(change, wanted.end);
    if (SameTag(wanted, change.before))
        return;
    const fs::path& song = change.before.path;
    if (!wanted.end.isEmpty())
        WriteTag(song, wanted);
    change.after = FactsOf(song);
    const Fitting title = FitTitle(wanted.title);
    const Fitting artist = FitArtist(wanted.artist);
    const bool differs = title.text != change.before.title || artist.text != change.before.artist;
    if (wanted.end.isEmpty() || (differs && SameTag(change.after, change.before))) {
        change.problems << WhyNotWritten(song);
        return;
    }
    CompareText("title", wanted.title, title, change.problems);
    CompareText("artist", wanted.artist, artist, change.problems);
}

void Rename(SongChange& change, const fs::path& name) {
    fs::path& path = change.after.path;
    if (name == path.filename())
        return;
    platform::ClearReadOnly(path);
    const fs::path renamed = path.parent_path() / name;
    const std::error_code error = platform::RenameNoReplace(path, renamed);
    if (!error)
        path = renamed;
    else if (error == std::errc::file_exists)
        change.problems << QStringLiteral("It keeps its name: another file is called \"%1\".")
                               .arg(platform::ShownText(name));
    else
        change.problems << QStringLiteral("It keeps its name: %1.")
                               .arg(QString::fromLocal8Bit(error.message().c_str()));
}

} // namespace

SongFacts FactsOf(const fs::path& song) {
    platform::RegularFile file(song);
    const QByteArray end = c_ID3::EndOf(file);
    c_ID3 tag;
    tag.TakeEnd(end);
    SongFacts facts{song, tag.Title(), tag.Artist(), tag.Comment(), {}, {}, end};
    library::SongTag shown;
    shown.Read(file);
    if (shown.IsNewer()) {
        facts.newerTitle = shown.Title();
        facts.newerArtist = shown.Artist();
    }
    std::error_code error;
    facts.missing = !fs::is_regular_file(song, error);
    return facts;
}

SongChange ChangeSong(const SongWish& wish) {
    const SongFacts before = FactsOf(wish.song);
    SongChange change{before, before, {}};
    if (before.missing) {
        change.problems << QStringLiteral("The file is not there any more.");
        return change;
    }
    SongFacts wanted = before;
    wish.edit(wanted);
    ChangeTag(change, wanted);
    Rename(change, wanted.path.filename());
    return change;
}

std::vector<SongChange> ChangeAside(const std::vector<SongWish>& wishes,
                                    const std::function<bool()>& wanted) {
    const auto changes = std::make_shared<std::vector<SongChange>>();
    const auto change = [changes, wishes] {
        for (const SongWish& wish : wishes)
            changes->push_back(ChangeSong(wish));
    };
    return platform::AwaitAside(change, wanted) ? *changes : std::vector<SongChange>();
}

QString ProblemsOf(const std::vector<SongChange>& changes) {
    QStringList lines;
    for (const SongChange& change : changes)
        if (!change.problems.isEmpty())
            lines << platform::ShownText(change.before.path.filename()) + u':' << change.problems;
    return lines.join(u'\n');
}

} // namespace editor
