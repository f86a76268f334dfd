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
#include <tuple>

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
    QString FirstTwo() {
        EXPECT_TRUE(platform::AsidesEnd(std::chrono::seconds(20)));
        game::HighScoreTable table;
        if (fs::exists(mFile)) {
            EXPECT_EQ(table.Parse(BytesOf(mFile)), game::HighScoreTable::ReadResult::Good);
        }
        return table.Name(0) + table.Score(0) + u' ' + table.Name(1) + table.Score(1);
    }

    /// Enters a score into the table; the player does `enter` when asked for a name. Returns the
    /// messages that came.
    QStringList Check(
        std::int32_t score, const std::function<void()>& enter = [] {}) {
        c_hMulti highScores(mScores, mName);
        highScores.SetFileName(mFile);
        Robot robot([&] {
            if (mName.isVisible())
                enter();
            else if (mScores.isVisible())
                ClickOn(mScores.pCont);
        });
        highScores.Check(score);
        for (const QString& frame : robot.Frames())
            EXPECT_EQ(frame, "Songrush, Information, OK");
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
    using Make = std::function<void()>;
    // The last is what it is kept as beside the table; nothing when the table was read.
    const std::tuple<const char*, Make, QStringList, const char*> cases[] = {
        {"other line ends", write(OldTable().replace("\r\n", "\n")), {}, ""},
        {"cut short", write(OldTable().chopped(20)), told, ".old"},
        {"tampered", write(OldTable().replace("10", "99")), {}, ".old2"},
        {"a pipe", [this] { mkfifo(mFile.c_str(), 0600); }, told, ".old3"},
        {"a link to itself", [this] { fs::create_symlink("H1.dat", mFile); }, told, ".old4"},
    };
    for (const auto& [what, make, messages, kept] : cases) {
        fs::remove_all(mFile);
        make();
        const ino_t before = Inode(mFile);
        EXPECT_EQ(Check(0), messages) << what;
        EXPECT_EQ(FirstTwo(), *kept ? "Blank0 Blank0" : "Old10 Old10") << what;
        EXPECT_TRUE(!*kept || Inode(mFile.string() + kept) == before) << what;
    }
}

TEST_F(HighScoresTest, WhatCannotBeMovedAsideIsNotOverwritten) {
    mFile.replace_filename(std::string(255, 'n')); // no name is left beside it
    const QStringList told = {"Error in KillIt:c_hMulti", "Error Writing High Scores."};
    const std::pair<QByteArray, QStringList> cases[] = {
        {OldTable().chopped(20), QStringList("Error loading High Scores.") + told},
        {OldTable().replace("10", "99"), told},
    };
    for (const auto& [bytes, messages] : cases) {
        std::ofstream(mFile, std::ios::binary) << bytes.toStdString();
        EXPECT_EQ(Check(0), messages);
        EXPECT_EQ(BytesOf(mFile), bytes.toStdString());
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
        EXPECT_EQ(FirstTwo(), entries[quitAt]) << "at step " << quitAt;
    }
}

TEST_F(HighScoresTest, ThePromptOffersTheNamesUsedLast) {
    platform::WriteSetting("Songrush", "Scores", "Names", "");
    const auto type = [this](const QString& text) { QTest::keyClicks(mName.Text1, text); };
    const auto press = [this](Qt::Key key) { QTest::keyClick(mName.Text1, key); };
    const QString longest = "abcdefghijklmnopqrst";
    // What is done, the name that is entered by it, and those that are offered from then on.
    const std::tuple<std::function<void()>, QString, QString> cases[] = {
        {[] {}, "Blank", ""},
        {[&] { type(longest + "uvwxyz"); }, longest, longest},
        {[&] { type("Bo "); }, "Bo", "Bo," + longest},
        {[&] { type("Cy"), toolkit::Stage::Get().close(); }, "Cy", "Cy,Bo," + longest},
        {[&] { press(Qt::Key_Down), press(Qt::Key_Down); }, "Bo", "Bo,Cy," + longest},
        {[&] { type("cy"), press(Qt::Key_Down), press(Qt::Key_Up); }, "cy", "cy,Bo," + longest},
        {[this] {
             const QRect last = mName.Names->visualItemRect(mName.Names->item(2));
             QTest::mouseClick(mName.Names->viewport(), Qt::LeftButton, {}, last.center());
         },
         longest, longest + ",cy,Bo"},
    };
    std::int32_t score = 0;
    for (const auto& [act, entered, offered] : cases) {
        Check(++score, [&, enter = act] {
            EXPECT_EQ(mName.Text1->text(), "");
            enter();
            press(Qt::Key_Return);
        });
        EXPECT_EQ(FirstTwo().section(u' ', 0, 0), entered + QString::number(score));
        EXPECT_EQ(game::LastNames().join(u','), offered);
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
