#include "editor/SongChange.h"
#include "editor/TitleRules.h"
#include "tests/Robot.h"
#include "tests/TemporaryFolder.h"

#include <tuple>

namespace fs = std::filesystem;

namespace {

QString Repeated(const char* text, int count) { return QString(text).repeated(count); }

editor::SongChange Change(const fs::path& song, const editor::SongFacts& wanted) {
    return editor::ChangeSong({song, [&wanted](editor::SongFacts& facts) {
                                   const QByteArray end = facts.end;
                                   facts = wanted;
                                   facts.end = end;
                               }});
}

TEST(SongChangeTest, WhatIsNotDoneToTheLetterIsToldAndWhatIsOnDiskIsShown) {
    using Spoil = void (*)(const fs::path&);
    const Spoil nothing = [](const fs::path&) {};
    // The title, artist and name that are wanted, those that are there then, and the problem.
    const std::tuple<QString, QString, const char*, QString, const char*, Spoil> cases[] = {
        {" New ", "Band", "song.mp3", "New|Band|song.mp3", "", nothing},
        {"Old", "Old Band", "what?.mp3", "Old|Old Band|what?.mp3", "", nothing},
        {"Old", "Old Band", "taken.mp3", "Old|Old Band|song.mp3", "called \"taken.mp3\"", nothing},
        {"Старый", "Band", "new.mp3", "??????|Band|new.mp3", "cannot hold all letters of the title",
         nothing},
        {Repeated("Fifteen letters", 4), Repeated("b", 31), "song.mp3",
         Repeated("Fifteen letters", 4).first(59) + "|" + Repeated("b", 30) + "|song.mp3",
         "is too long; the tag has \"bbb", nothing},
        {"New", "Band", "new.mp3", "Old|Old Band|new.mp3", "read-only", MakeReadOnly},
        {"Old", "Old Band", "other/new.mp3", "Old|Old Band|new.mp3", "", nothing},
        {"New", "Band", "song.mp3", "||song.mp3", "too short",
         [](const fs::path& song) { fs::resize_file(song, 100); }},
        {"New", "Band", "new.mp3", "||song.mp3", "not there any more",
         [](const fs::path& song) { fs::remove(song); }},
    };
    for (const auto& [title, artist, name, shown, problem, spoil] : cases) {
        const TemporaryFolder folder;
        const fs::path taken = folder.Write("taken.mp3", "another file");
        const fs::path song = folder.Write("song.mp3", std::string(300, 'x'));
        Change(song, {song, "Old", "Old Band", "Comment", {}, {}});
        spoil(song);
        const editor::SongChange change =
            Change(song, {folder.Path() / name, title, artist, "Comment", {}, {}});
        const editor::SongFacts now = editor::FactsOf(change.after.path);
        EXPECT_EQ(now.title + '|' + now.artist + '|' +
                      QString::fromStdString(now.path.filename().string()),
                  shown);
        EXPECT_EQ(now.title + now.artist, change.after.title + change.after.artist);
        EXPECT_EQ(BytesOf(taken), "another file");
        const QString problems = editor::ProblemsOf({change});
        EXPECT_EQ(problems.isEmpty(), *problem == 0) << problems.toStdString();
        EXPECT_TRUE(problems.contains(problem)) << problems.toStdString();
    }
}

TEST(SongChangeTest, AChangeIsTakenBackAndAgainToTheByte) {
    const std::string sound(300, 'x');
    const std::string files[] = {
        sound + "tAg" + std::string(124, '\0') + '\xC8', // which is no genre
        sound + "TAG" + std::string("Old\0 Title", 10) + std::string(115, ' '),
        sound + "the last byte!",
    };
    for (const std::string& bytes : files) {
        const TemporaryFolder folder;
        const fs::path song = folder.Write("song.mp3", bytes);
        const fs::path renamed = folder.Path() / "new.mp3";
        editor::SongChange change =
            Change(song, {renamed, Repeated("- long title", 4), "New Band", "A comment", {}, {}});
        const std::string changed = BytesOf(renamed);
        EXPECT_EQ(editor::FactsOf(renamed).title, Repeated("- long title", 4));
        for (const auto& [path, expected] : {std::pair(song, bytes), {renamed, changed}}) {
            change = editor::ChangeSong(
                {change.after.path, [before = change.before](auto& facts) { facts = before; }});
            EXPECT_EQ(BytesOf(path), expected);
            EXPECT_TRUE(change.problems.empty());
        }
    }
}

} // namespace
