#include "game/c_hMulti.h"

#include "game/LastNames.h"
#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "platform/Aside.h"
#include "platform/Settings.h"
#include "platform/Wait.h"
#include "tests/Quit.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"
#include "toolkit/Stage.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
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

    /// Shows the table for a player without points and leaves it. Returns the messages.
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
        if (!mName.isVisible())
            return ClickOn(mScores.pCont);
        QTest::keyClicks(mName.Text1, "Ann");
        toolkit::Stage::Get().close();
    });
    highScores.Check(10);
    EXPECT_EQ(FirstTwo(mFile), "Ann10 Blank0");
}

TEST_F(HighScoresTest, ThePromptOffersTheNamesUsedLast) {
    platform::WriteSetting("Songrush", "Scores", "Names", "");
    const char* const kLong = "abcdefghijklmnopqrstuvwxyz";
    const struct {
        std::function<void()> enter;
        QString entered;
        QString offered; // from then on
    } cases[] = {
        {[] {}, "Blank", ""},
        {[&] { QTest::keyClicks(mName.Text1, kLong); }, "abcdefghijklmnopqrst",
         "abcdefghijklmnopqrst"},
        {[this] { QTest::keyClicks(mName.Text1, "Bo "); }, "Bo", "Bo,abcdefghijklmnopqrst"},
        {[this] { QTest::keyClicks(mName.Text1, "Cy"); }, "Cy", "Cy,Bo,abcdefghijklmnopqrst"},
        {[this] {
             QTest::keyClick(mName.Text1, Qt::Key_Down);
             QTest::keyClick(mName.Text1, Qt::Key_Down);
         },
         "Bo", "Bo,Cy,abcdefghijklmnopqrst"},
        {[this] {
             QTest::keyClicks(mName.Text1, "cy");
             QTest::keyClick(mName.Text1, Qt::Key_Down);
             QTest::keyClick(mName.Text1, Qt::Key_Up);
         },
         "cy", "cy,Bo,abcdefghijklmnopqrst"},
        {[this] {
             const QRect last = mName.Names->visualItemRect(mName.Names->item(2));
             QTest::mouseClick(mName.Names->viewport(), Qt::LeftButton, {}, last.center());
         },
         "abcdefghijklmnopqrst", "abcdefghijklmnopqrst,cy,Bo"},
    };
    std::int32_t score = 0;
    for (const auto& c : cases) {
        c_hMulti highScores(mScores, mName);
        Robot robot([&] {
            if (!mName.isVisible())
                return ClickOn(mScores.pCont);
            EXPECT_EQ(mName.Text1->text(), "");
            c.enter();
            QTest::keyClick(mName.Text1, Qt::Key_Return);
        });
        highScores.Check(++score);
        EXPECT_EQ(FirstTwo(mFile).section(u' ', 0, 0), c.entered + QString::number(score));
        EXPECT_EQ(game::LastNames().join(u','), c.offered);
    }
    for (int i = 0; i < 10; ++i)
        game::RememberName(QString::number(i));
    EXPECT_EQ(game::LastNames().join(u','), "9,8,7,6,5,4,3,2");
}

TEST_F(HighScoresTest, BrowsingShowsBothTablesAndChangesNoFile) {
    const QByteArray tampered = OldTable().replace("10", "99");
    std::ofstream(mFile, std::ios::binary) << OldTable().toStdString();
    std::ofstream(mFolder.Path() / "H2.dat", std::ios::binary) << tampered.toStdString();
    c_hMulti highScores(mScores, mName);
    QStringList seen;
    Robot robot([&] {
        if (!mScores.isVisible())
            return; // the table is still read
        const auto labels = mScores.findChildren<QLabel*>();
        const QString table = labels[1]->text() + u':' + labels[2]->text();
        if (!seen.endsWith(table)) // a second click that comes too soon is none
            seen << table;
        EXPECT_TRUE(Minimises(mScores));
        ClickOn(seen.size() < 3 ? mScores.pOther : mScores.pX);
    });
    highScores.Browse();
    const QString normal = "Normal Play:1. Old, 10";
    EXPECT_EQ(seen, QStringList({normal, "Betting:1. Blank, 0", normal}));
    EXPECT_EQ(BytesOf(mFile), OldTable().toStdString());
    EXPECT_EQ(BytesOf(mFolder.Path() / "H2.dat"), tampered.toStdString());
    EXPECT_FALSE(fs::exists(mFolder.Path() / "H2.dat.old"));
    EXPECT_FALSE(mScores.pOther->isVisibleTo(&mScores));
}

} // namespace
