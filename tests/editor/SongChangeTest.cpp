#include "editor/SongChange.h"
#include "editor/TitleRules.h"
#include "tests/Robot.h"
#include "tests/TemporaryFolder.h"

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
    const struct {
        QString title, artist;
        const char* name;
        QString shown; // title, artist and name after that
        const char* problem;
        void (*spoil)(const fs::path&) = [](const fs::path&) {};
    } cases[] = {
        {" New ", "Band", "song.mp3", "New|Band|song.mp3", ""},
        {"Old", "Old Band", "what?.mp3", "Old|Old Band|what?.mp3", ""},
        {"Old", "Old Band", "taken.mp3", "Old|Old Band|song.mp3", "called \"taken.mp3\""},
        {"Старый", "Band", "new.mp3", "??????|Band|new.mp3",
         "cannot hold all letters of the title"},
        {Repeated("Fifteen letters", 4), Repeated("b", 31), "song.mp3",
         Repeated("Fifteen letters", 4).first(59) + "|" + Repeated("b", 30) + "|song.mp3",
         "is too long; the tag has \"bbb"},
        {"New", "Band", "new.mp3", "Old|Old Band|new.mp3", "read-only", MakeReadOnly},
        {"Old", "Old Band", "other/new.mp3", "Old|Old Band|new.mp3", ""},
        {"New", "Band", "song.mp3", "||song.mp3", "too short",
         [](const fs::path& song) { fs::resize_file(song, 100); }},
        {"New", "Band", "new.mp3", "||song.mp3", "not there any more",
         [](const fs::path& song) { fs::remove(song); }},
    };
    for (const auto& c : cases) {
        const TemporaryFolder folder;
        const fs::path taken = folder.Write("taken.mp3", "another file");
        const fs::path song = folder.Write("song.mp3", std::string(300, 'x'));
        Change(song, {song, "Old", "Old Band", "Comment", {}, {}});
        c.spoil(song);
        const editor::SongChange change =
            Change(song, {folder.Path() / c.name, c.title, c.artist, "Comment", {}, {}});
        const editor::SongFacts now = editor::FactsOf(change.after.path);
        EXPECT_EQ(now.title + '|' + now.artist + '|' +
                      QString::fromStdString(now.path.filename().string()),
                  c.shown);
        EXPECT_EQ(now.title + now.artist, change.after.title + change.after.artist);
        EXPECT_EQ(BytesOf(taken), "another file");
        const QString problems = editor::ProblemsOf({change});
        EXPECT_EQ(problems.isEmpty(), *c.problem == 0) << problems.toStdString();
        EXPECT_TRUE(problems.contains(c.problem)) << problems.toStdString();
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
