#include "editor/SongList.h"
#include "editor/SongReading.h"
#include "platform/Text.h"
#include "tests/Robot.h"
#include "tests/TemporaryFolder.h"
#include "toolkit/PictureBox.h"
#include "toolkit/c_PicList.h"

namespace fs = std::filesystem;

namespace {

using editor::Line;

class SongListTest : public testing::Test {
protected:
    SongListTest() {
        mList.Create(&mBox, "File Name\\Song Title\\Artist");
        mSongs.Begin({});
        mSongs.AddSaved(Lines({"a", "b", "c", "d"}));
    }

    static std::vector<Line> Lines(const QStringList& names) {
        std::vector<Line> lines;
        for (const QString& name : names)
            lines.push_back({name + "\\Title\\", name});
        return lines;
    }

    QString Names() const {
        QString names;
        for (int line = 0; line < mList.LineCount(); ++line)
            names += mList.CellText(line, 0);
        return names;
    }

    /// Undoes and redoes everything, twice; returns the list after each step, with the step's name.
    QStringList Replay() {
        QStringList seen;
        for (int i = 0; i < 2; ++i)
            while (!mSongs.UndoName().isEmpty())
                mSongs.Undo();
        seen << Names();
        while (!mSongs.RedoName().isEmpty()) {
            const QString name = mSongs.RedoName();
            mSongs.Redo();
            seen << name + ": " + Names();
        }
        return seen;
    }

    toolkit::PictureBox mBox{nullptr, "pList", QSize(400, 200)};
    c_PicList mList;
    editor::SongList mSongs{mList, [](const std::vector<editor::SongWish>& wishes) {
                                std::vector<editor::SongChange> changes;
                                for (const auto& wish : wishes)
                                    changes.push_back(editor::ChangeSong(wish));
                                return changes;
                            }};
};

TEST_F(SongListTest, EveryStepIsTakenBackAndAgainAsOftenAsOneLikes) {
    mSongs.Add(Lines({"e"}));
    mSongs.Add(Lines({"f", "g"}));
    mSongs.EndAdding();
    mSongs.Add(Lines({"h"}));
    mSongs.Remove({0, 3, 4, 7});
    mSongs.Reordered("Sort", mList.SortByHeader(0, 2));
    mSongs.Remove({0, 1, 2, 3});
    mSongs.Add(Lines({"i"}));
    const QStringList steps = {
        "abcd",       "Add 3 songs: abcdefg", "Add 1 song: abcdefgh", "Remove 4 songs: bcfg",
        "Sort: gfcb", "Remove 4 songs: ",     "Add 1 song: i"};
    EXPECT_EQ(Replay(), steps);
    EXPECT_EQ(Replay(), steps);
    for (int i = 0; i < 3; ++i)
        mSongs.Undo();
    mSongs.Remove({1});
    EXPECT_EQ(mSongs.RedoName(), "") << "what was undone is over when something else is done";
    EXPECT_EQ(Replay().back(), "Remove 1 song: bfg");
    for (int i = 0; i < 150; ++i) {
        mSongs.EndAdding();
        mSongs.Add(Lines({"x"}));
    }
    EXPECT_GT(Replay().size(), 150) << "many steps are kept";
}

TEST_F(SongListTest, EditsAreTakenBackOnDiskButNeverOverAnotherFile) {
    const TemporaryFolder folder;
    const auto path = [&folder](const char* name) { return folder.Path() / name; };
    for (const char* name : {"one.mp3", "two.mp3"})
        folder.Write(name, std::string(200, 'x'));
    const auto edit = [](const char* title, const char* name) {
        return [=](editor::SongFacts& facts) {
            facts.title = title;
            facts.path.replace_filename(name);
        };
    };
    mSongs.Begin({});
    for (const char* name : {"one.mp3", "two.mp3", "one.mp3"})
        mSongs.Add({editor::LineOf(editor::FactsOf(path(name)))});
    // The second one takes the name that the first one leaves.
    mSongs.Changed({editor::ChangeSong({path("one.mp3"), edit("First", "new.mp3")}),
                    editor::ChangeSong({path("two.mp3"), edit("Second", "one.mp3")})});
    EXPECT_EQ(mSongs.UndoName(), "Edit 2 songs");
    EXPECT_EQ(mSongs.Undo(), "");
    EXPECT_EQ(Names(), "onetwoone");
    EXPECT_EQ(editor::FactsOf(path("two.mp3")).title, "");
    EXPECT_EQ(mSongs.Redo(), "");
    EXPECT_EQ(Names(), "newonenew");
    EXPECT_EQ(editor::FactsOf(path("one.mp3")).title, "Second");
    folder.Write("two.mp3", "another file");
    EXPECT_TRUE(mSongs.Undo().contains("another file is called \"two.mp3\""));
    EXPECT_EQ(BytesOf(path("two.mp3")), "another file");
    for (int line = 0; line < 3; ++line)
        EXPECT_TRUE(fs::exists(platform::PathFromKey(mList.LineKey(line))));
}

TEST_F(SongListTest, MissingSongsAreReplacedByThoseFoundByTheirNames) {
    const TemporaryFolder folder;
    folder.Write("deep/Gone.MP3", "");
    const auto missing = [](const char* path) {
        Line line = editor::LineOf({path, {}, {}, {}, {}, {}});
        line.missing = true;
        return line;
    };
    mSongs.Add({missing("/old/gone.mp3"), missing("/old/lost.mp3"), missing("/old/gone.mp3")});
    ASSERT_EQ(mSongs.Missing().size(), 2U);
    editor::SongStream stream;
    editor::FindByName(folder.Path(), mSongs.Missing())(stream);
    mSongs.Replace("Find", editor::MatchByName(mSongs.Missing(), stream.Take().lines));
    EXPECT_EQ(Names(), "abcdGonelostGone");
    EXPECT_EQ(mSongs.Missing().size(), 1U);
    mSongs.Undo();
    EXPECT_EQ(mSongs.Missing().size(), 2U);
}

} // namespace
