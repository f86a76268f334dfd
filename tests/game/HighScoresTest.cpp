#include "game/c_hMulti.h"

#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "platform/Wait.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"

#include <QEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <csignal>

namespace fs = std::filesystem;

namespace {

class HighScoresTest : public testing::Test {
protected:
    void TearDown() override {
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
        QCoreApplication::exec(); // wipes off the mark that a quit leaves on Qt's loops
    }

    /// The first two entries of the file, or of a new table.
    QString FirstTwo(const fs::path& file) {
        game::HighScoreTable table;
        if (fs::exists(file)) {
            EXPECT_EQ(table.Parse(BytesOf(file)), game::HighScoreTable::ReadResult::Good);
        }
        return table.Name(0) + table.Score(0) + u' ' + table.Name(1) + table.Score(1);
    }

    SongFolder mFolder;
    fs::path mFile = mFolder.Path() / "H1.dat";
    f_HighMulti mScores;
    f_High mName;
};

TEST_F(HighScoresTest, AQuitKeepsTheConfirmedNamesAndEntersNoOthers) {
    const struct {
        const char* what;
        void (*quit)();
    } quits[] = {
        {"terminated", [] { std::raise(SIGTERM); }},
        {"session's end",
         [] {
             QEvent quit(QEvent::Quit);
             QCoreApplication::sendEvent(qApp, &quit);
         }},
    };
    // Of two players, at: their scores, the first name, the second one, the table.
    const char* const entries[] = {"Blank0 Blank0", "Blank0 Blank0", "Ann20 Blank0", "Ann20 Ann10"};
    for (const auto& q : quits) {
        for (int quitAt = 0; quitAt < 4; ++quitAt) {
            const auto what = testing::Message() << q.what << " at step " << quitAt;
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
                    q.quit();
                else
                    ClickOn(naming ? static_cast<QWidget*>(mName.cmdContinue) : mScores.pCont);
            });
            std::vector<std::int32_t> scores{10, 20};
            highScores.SetAndShowScores(scores);
            if (!highScores.ExitProgram())
                highScores.MultiCheck(scores);
            EXPECT_EQ(step, quitAt + 1) << what;
            EXPECT_EQ(FirstTwo(mFile), entries[quitAt]) << what;
        }
    }
}

TEST_F(HighScoresTest, ClosingThePromptEntersWhatWasTyped) {
    c_hMulti highScores(mScores, mName);
    Robot robot([this] {
        if (mName.isVisible()) {
            QTest::keyClicks(mName.Text1, "Ann");
            mName.close();
        } else if (mScores.isVisible()) {
            ClickOn(mScores.pCont);
        }
    });
    highScores.Check(10);
    EXPECT_EQ(FirstTwo(mFile), "Ann10 Blank0");
}

} // namespace
