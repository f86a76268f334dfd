#include "editor/SongChange.h"
#include "editor/TitleRules.h"
#include "tests/Robot.h"
#include "tests/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

QString Repeated(const char* text, int count) { return QString(text).repeated(count); }

editor::SongChange Change(const fs::path& song, const editor::SongFacts& wanted) {
    return editor::ChangeSong({song, [&wanted](editor::SongFacts& facts) { facts = wanted; }});
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

TEST(SongChangeTest, AChangeIsTakenBackWithALongTitlesComment) {
    const TemporaryFolder folder;
    const fs::path song = folder.Write("song.mp3", std::string(300, 'x'));
    const editor::SongFacts old{song, "Old", "Band", "A comment", {}, {}};
    Change(song, old);
    const std::string bytes = BytesOf(song);
    const editor::SongChange change = Change(
        song,
        {folder.Path() / "new.mp3", Repeated("long title ", 4), "New Band", "A comment", {}, {}});
    EXPECT_TRUE(fs::exists(folder.Path() / "new.mp3"));
    Change(change.after.path, change.before);
    EXPECT_EQ(BytesOf(song), bytes);
}

} // namespace
