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
    editor::SongList mSongs{mList, {}};
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
