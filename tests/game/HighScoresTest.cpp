#include "game/c_hMulti.h"

#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "platform/Aside.h"
#include "platform/Wait.h"
#include "tests/Quit.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"
#include "toolkit/Stage.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <csignal>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

/// The file of a table that "Old" has filled with 10.
QByteArray OldTable() {
    game::HighScoreTable table;
    for (int i = 0; i < game::HighScoreTable::kPlaces; ++i)
        table.Insert(0, "Old", 10);
    return table.Serialise();
}

ino_t Inode(const fs::path& file) {
    struct stat status {};
    EXPECT_EQ(lstat(file.c_str(), &status), 0) << file;
    return status.st_ino;
}

class HighScoresTest : public testing::Test {
protected:
    void TearDown() override { ForgetQuit(); }

    /// The first two entries of the file, or of a new table.
    QString FirstTwo(const fs::path& file) {
        EXPECT_TRUE(platform::AsidesEnd(std::chrono::seconds(20)));
        game::HighScoreTable table;
        if (fs::is_regular_file(file)) {
            EXPECT_EQ(table.Parse(BytesOf(file)), game::HighScoreTable::ReadResult::Good);
        }
        return table.Name(0) + table.Score(0) + u' ' + table.Name(1) + table.Score(1);
    }

    /// Leaves the table of a player without points; the messages that came.
    QStringList CheckWithoutPoints(const fs::path& file) {
        c_hMulti highScores(mScores, mName);
        highScores.SetFileName(file);
        Robot robot([this] {
            if (mScores.isVisible())
                ClickOn(mScores.pCont);
        });
        highScores.Check(0);
        return robot.Messages();
    }

    SongFolder mFolder;
    fs::path mFile = mFolder.Path() / "H1.dat";
    f_HighMulti mScores;
    f_High mName;
};

TEST_F(HighScoresTest, WhatCannotBeReadOrWasTamperedWithIsKeptBeside) {
    const QStringList told("Error loading High Scores.");
    const auto write = [this](const QByteArray& bytes) {
        return [this, bytes] { std::ofstream(mFile, std::ios::binary) << bytes.toStdString(); };
    };
    const struct {
        const char* what;
        std::function<void()> make;
        QStringList messages;
        const char* kept; // beside the table; empty when the table was read
    } cases[] = {
        {"other line ends", write(OldTable().replace("\r\n", "\n")), {}, ""},
        {"cut short", write(OldTable().chopped(20)), told, ".old"},
        {"tampered", write(OldTable().replace("10", "99")), {}, ".old2"},
        {"a pipe", [this] { mkfifo(mFile.c_str(), 0600); }, told, ".old3"},
        {"a link to itself", [this] { fs::create_symlink("H1.dat", mFile); }, told, ".old4"},
    };
    for (const auto& c : cases) {
        fs::remove_all(mFile);
        c.make();
        const ino_t before = Inode(mFile);
        EXPECT_EQ(CheckWithoutPoints(mFile), c.messages) << c.what;
        EXPECT_EQ(FirstTwo(mFile), *c.kept ? "Blank0 Blank0" : "Old10 Old10") << c.what;
        EXPECT_TRUE(!*c.kept || Inode(mFile.string() + c.kept) == before) << c.what;
    }
}

TEST_F(HighScoresTest, WhatCannotBeMovedAsideIsNotOverwritten) {
    const fs::path longest = mFolder.Path() / std::string(255, 'n'); // no name is left beside it
    const QStringList told = {"Error in KillIt:c_hMulti", "Error Writing High Scores."};
    const std::pair<QByteArray, QStringList> cases[] = {
        {OldTable().chopped(20), QStringList("Error loading High Scores.") + told},
        {OldTable().replace("10", "99"), told},
    };
    for (const auto& [bytes, messages] : cases) {
        std::ofstream(longest, std::ios::binary) << bytes.toStdString();
        EXPECT_EQ(CheckWithoutPoints(longest), messages);
        EXPECT_EQ(BytesOf(longest), bytes.toStdString());
    }
}

TEST_F(HighScoresTest, AQuitKeepsTheConfirmedNamesAndEntersNoOthers) {
    // Of two players, at: their scores, the first name, the second one, the table.
    const char* const entries[] = {"Blank0 Blank0", "Blank0 Blank0", "Ann20 Blank0", "Ann20 Ann10"};
    for (int quitAt = 0; quitAt < 4; ++quitAt) {
        fs::remove(mFile);
        const platform::QuitWatch watch;
        c_hMulti highScores(mScores, mName);
        int step = 0;
        Robot robot([&] {
            const bool naming = mName.isVisible();
            if (step > quitAt || (!naming && !mScores.isVisible()))
                return;
            if (naming)
                QTest::keyClicks(mName.Text1, "Ann");
            if (step++ == quitAt)
                std::raise(SIGTERM);
            else
                ClickOn(naming ? static_cast<QWidget*>(mName.cmdContinue) : mScores.pCont);
        });
        std::vector<std::int32_t> scores{10, 20};
        highScores.SetAndShowScores(scores);
        if (!highScores.ExitProgram())
            highScores.MultiCheck(scores);
        EXPECT_EQ(step, quitAt + 1);
        EXPECT_EQ(FirstTwo(mFile), entries[quitAt]) << "at step " << quitAt;
    }
}

TEST_F(HighScoresTest, ClosingThePromptEntersWhatWasTyped) {
    c_hMulti highScores(mScores, mName);
    Robot robot([this] {
        if (mScores.isVisible())
            return ClickOn(mScores.pCont);
        QTest::keyClicks(mName.Text1, "Ann");
        toolkit::Stage::Get().close();
    });
    highScores.Check(10);
    EXPECT_EQ(FirstTwo(mFile), "Ann10 Blank0");
}

} // namespace
