#include "game/c_hMulti.h"

#include "game/LastNames.h"
#include "platform/Aside.h"
#include "platform/Settings.h"
#include "tests/game/GameScene.h"
#include "toolkit/Stage.h"

#include <QListWidget>
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

class HighScoresTest : public testing::Test, protected GameScene {
protected:
    /// The first two entries of the file, or of a new table.
    QString FirstTwo() {
        EXPECT_TRUE(platform::AsidesEnd(std::chrono::seconds(20)));
        const auto table = fs::exists(mFile) ? Table("H1.dat") : game::HighScoreTable();
        return table.Name(0) + table.Score(0) + u' ' + table.Name(1) + table.Score(1);
    }

    /// Enters a score into the table; the player does `enter` when asked for a name. Returns the
    /// messages that came.
    QStringList Check(
        std::int32_t score, const std::function<void()>& enter = [] {}) {
        c_hMulti highScores(scores, name);
        highScores.SetFileName(mFile);
        Robot robot([&] {
            if (name.isVisible())
                enter();
            else if (scores.isVisible())
                ClickOn(scores.pCont);
        });
        highScores.Check(score);
        for (const QString& frame : robot.Frames())
            EXPECT_EQ(frame, "Songrush, Information, OK");
        return robot.Messages();
    }

    fs::path mFile = mFolder.Path() / "H1.dat";
};

TEST_F(HighScoresTest, WhatCannotBeReadOrWasTamperedWithIsKeptBesideOrNotOverwritten) {
    const QStringList told("Error loading High Scores.");
    const QStringList stays = {"Error in KillIt:c_hMulti", "Error Writing High Scores."};
    const QByteArray cut = OldTable().chopped(20);
    const QByteArray tampered = OldTable().replace("10", "99");
    const auto write = [this](const QByteArray& bytes) {
        return [this, bytes] { std::ofstream(mFile, std::ios::binary) << bytes.toStdString(); };
    };
    using Make = std::function<void()>;
    const std::string longest(255, 'n'); // no name is left beside it
    // The last is what is put after its name.
    const std::tuple<const char*, Make, std::string, QStringList, const char*> cases[] = {
        {"cut short", write(cut), "H1.dat", told, ".old"},
        {"tampered", write(tampered), "H1.dat", {}, ".old2"},
        {"a pipe", [this] { mkfifo(mFile.c_str(), 0600); }, "H1.dat", told, ".old3"},
        {"a link to itself", [this] { fs::create_symlink("H1.dat", mFile); }, "H1.dat", told,
         ".old4"},
        {"cut short and not to be moved", write(cut), longest, told + stays, ""},
        {"tampered and not to be moved", write(tampered), longest, stays, ""},
    };
    for (const auto& [what, make, file, messages, kept] : cases) {
        mFile.replace_filename(file);
        fs::remove_all(mFile);
        make();
        const ino_t before = Inode(mFile);
        EXPECT_EQ(Check(0), messages) << what;
        EXPECT_TRUE(platform::AsidesEnd(std::chrono::seconds(20)));
        EXPECT_EQ(Inode(mFile.string() + kept), before) << what;
        EXPECT_TRUE(!*kept || FirstTwo() == "Blank0 Blank0") << what;
    }
    EXPECT_EQ(BytesOf(mFile), tampered.toStdString());
}

TEST_F(HighScoresTest, TwelveScoresAreAPageWithPlacesAndAPodiumAndMoreGoOnOnTheNext) {
    StandStill();
    QStringList firstRows;
    Robot robot([&] {
        if (!scores.isVisible())
            return;
        if (firstRows.isEmpty())
            ExpectLook(scores, "game-twelve");
        firstRows << scores.findChildren<QLabel*>()[2]->text();
        ClickOn(scores.pCont);
    });
    std::vector<std::int32_t> points{5, 30, 10, 0, 30, 10, 5, 2, 5, 5, 5, 5};
    c_hMulti highScores(scores, name);
    highScores.SetAndShowScores(points, {"A perfect game!", "New best of the evening"});
    points.push_back(40);
    highScores.SetAndShowScores(points);
    EXPECT_EQ(firstRows, QStringList({"1. Player 2, 30, winner", "1. Player 13, 40, winner",
                                      "13. Player 12, 0"}));
}

TEST_F(HighScoresTest, ThePromptOffersTheNamesUsedLast) {
    platform::WriteSetting("Songrush", "Scores", "Names", "");
    const auto type = [this](const QString& text) { QTest::keyClicks(name.Text1, text); };
    const auto press = [this](Qt::Key key) { QTest::keyClick(name.Text1, key); };
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
             const QRect last = name.Names->visualItemRect(name.Names->item(2));
             QTest::mouseClick(name.Names->viewport(), Qt::LeftButton, {}, last.center());
         },
         longest, longest + ",cy,Bo"},
    };
    std::int32_t score = 0;
    for (const auto& [act, entered, offered] : cases) {
        Check(++score, [&, enter = act] {
            EXPECT_EQ(name.Text1->text(), "");
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
    const std::string tampered = OldTable().replace("10", "99").toStdString();
    std::ofstream(mFile) << tampered;
    std::ofstream(mFolder.Path() / "H2.dat") << OldTable().toStdString();
    c_hMulti highScores(scores, name);
    QStringList seen;
    Robot robot([&] {
        if (!scores.isVisible())
            return; // the table is still read
        const auto labels = scores.findChildren<QLabel*>();
        const QString table = labels[1]->text() + u':' + labels[2]->text();
        if (!seen.endsWith(table)) // a second click that comes too soon is none
            seen << table;
        ClickOn(seen.size() < 2 ? scores.pOther : scores.pX);
    });
    highScores.Browse();
    EXPECT_EQ(seen, QStringList({"Normal Play:1. Blank, 0", "Betting:1. Old, 10"}));
    EXPECT_EQ(BytesOf(mFile), tampered);
    EXPECT_FALSE(scores.pOther->isVisibleTo(&scores));
}

} // namespace
