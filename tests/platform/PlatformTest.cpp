#include "platform/Message.h"
#include "platform/ProgramFolder.h"
#include "platform/Settings.h"
#include "platform/System.h"
#include "platform/Wait.h"
#include "tests/Quit.h"
#include "tests/TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

TEST(Settings, PathsAndTextsComeBackFromDiskAsTheyWere) {
    for (const fs::path path :
         {"/music", "/m/caf\xE9", "/m/caf\xC3\xA9", "@/a, b;c=\"d\" %41\\n ", ""}) {
        platform::WritePathSetting("RoundTrip", "Dirs", "Path", path);
        platform::WriteSetting("RoundTrip", "Dirs", "Text", "@1, \u00E4 ");
        // A changed file is read again.
        QFile store(QSettings("Songrush", "RoundTrip").fileName());
        ASSERT_TRUE(store.open(QIODevice::Append) && store.write("\n") == 1);
        store.close();
        EXPECT_EQ(platform::ReadPathSetting("RoundTrip", "Dirs", "Path", "none"), path);
        EXPECT_EQ(platform::ReadSetting("RoundTrip", "Dirs", "Text", ""), "@1, \u00E4 ");
    }
}

TEST(Settings, AStoreThatIsNoFileHasNothingAndIsNeverWaitedFor) {
    const QString store = QSettings("Songrush", "Pipe").fileName();
    QDir().mkpath(QFileInfo(store).path());
    ASSERT_EQ(mkfifo(QFile::encodeName(store), 0600), 0);
    platform::WriteSetting("Pipe", "Dirs", "Text", "new");
    EXPECT_EQ(platform::ReadSetting("Pipe", "Dirs", "Text", "none"), "none");
}

TEST(ProgramFolder, DataBesideTheProgramComesBeforeTheSystemsData) {
    const TemporaryFolder folder;
    const fs::path program = folder.Path() / "games";
    const fs::path shared = folder.Path() / "share/games/songrush";
    const auto own = [&] { return platform::FoldersOf(program, "/home/data").own; };
    const auto shipped = [&] { return platform::FoldersOf(program, "/home/data").shipped; };
    EXPECT_TRUE(own() == program && shipped() == program);
    fs::create_directories(shared / "Images");
    EXPECT_EQ(own(), "/home/data/Songrush");
    EXPECT_EQ(shipped(), shared);
    fs::create_directories(program / "Images");
    EXPECT_TRUE(own() == program && shipped() == program);
}

TEST(Wait, NestedAndLaterOnesEndAfterAQuitAndQuestionsAreAnsweredWithNo) {
    const auto forever = [] { return true; };
    platform::SetMessageBox([](const platform::Message&) {
        ADD_FAILURE() << "shown";
        return 0;
    });
    const std::pair<const char*, void (*)()> quits[] = {
        {"request", platform::RequestQuit},
        {"session's end", [] { QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit)); }},
#ifdef SONGRUSH_POSIX // the only systems where signals ask a program to end
        {"terminated", [] { std::raise(SIGTERM); }},
        {"hung up", [] { std::raise(SIGHUP); }},
#endif
    };
    for (const auto& [what, quit] : quits) {
        const platform::QuitWatch watch;
        EXPECT_FALSE(platform::Quitting()) << what;
        QTimer::singleShot(0, qApp, [&, act = quit] {
            QTimer::singleShot(1, qApp, act);
            platform::WaitWhile(forever);
        });
        platform::WaitWhile(forever);
        platform::WaitWhile(forever);
        EXPECT_TRUE(platform::Quitting()) << what;
        platform::ShowMessage("a message");
        EXPECT_FALSE(platform::AskYesNo("a question"));
    }
    ForgetQuit();
}

} // namespace
