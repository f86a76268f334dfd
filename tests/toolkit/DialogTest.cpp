#include "platform/ProgramFolder.h"
#include "platform/Text.h"
#include "tests/Robot.h"
#include "tests/TemporaryFolder.h"
#include "toolkit/OddNames.h"
#include "toolkit/SelectFolder.h"
#include "toolkit/Style.h"
#include "toolkit/cDialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QUrl>
#include <functional>
#include <utility>

namespace {

namespace fs = std::filesystem;

using Step = std::function<void(QFileDialog&)>;

class DialogTest : public testing::Test {
protected:
    DialogTest() {
        fs::create_directory(mFolder.Path() / "lists");
        toolkit::ChangeToFolder(mFolder.Path() / "lists");
        EXPECT_EQ(QDir::currentPath(), Lists());
    }
    ~DialogTest() override { fs::current_path(mBefore); }

    QString Lists() const { return QString::fromStdString(mFolder.Path().string() + "/lists"); }

    /// Returns the answer of `ask`. Each file dialog that it shows gets one of the steps.
    template <typename Ask> QString During(Ask ask, QList<Step> steps, bool saysYes = true) {
        bool stepping = false;
        Robot robot([&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr || steps.isEmpty() || std::exchange(stepping, true))
                return;
            steps.takeFirst()(*dialog);
            stepping = false;
        });
        robot.mSaysYes = saysYes;
        const QString answer = ask();
        EXPECT_TRUE(steps.isEmpty());
        mMessages = robot.Messages();
        return answer;
    }

    static QString Save() { return cDialog::GetSaveName("Save", "Lists", "*.m3u"); }
    static QString Browse() {
        return toolkit::BrowseForFolder(nullptr, "Add", fs::absolute("inner"));
    }

    QStringList mMessages;

private:
    TemporaryFolder mFolder;
    fs::path mBefore = fs::current_path();
};

/// Enters a path, or cancels without one.
Step Enter(const QString& path) {
    return [path](QFileDialog&) { AnswerFileDialog(path); };
}

TEST_F(DialogTest, SavingMovesToTheFolderAndAsksOnceBeforeAListIsReplaced) {
    fs::create_directory("inner");
    for (const char* file : {"rock.m3u", "jazz"})
        std::ofstream(fs::current_path() / "inner" / file) << "list";
    for (const QString name : {"inner/rock", "inner/rock.m3u"}) {
        EXPECT_EQ(During(Save, {Enter(name), Enter({})}, false), QString());
        EXPECT_EQ(mMessages.size(), 1) << name.toStdString();
        EXPECT_EQ(QDir::currentPath(), Lists());
        EXPECT_EQ(During(Save, {Enter(name)}), Lists() + '/' + name);
        EXPECT_EQ(mMessages.size(), 1) << name.toStdString();
        EXPECT_EQ(QDir::currentPath(), Lists() + "/inner");
        fs::current_path("..");
    }
    During(Save, {Enter("inner/jazz")}); // becomes jazz.m3u
    EXPECT_EQ(mMessages, QStringList());
    During(Save, {Enter("gone/rock"), Enter({})});
    EXPECT_EQ(mMessages, QStringList("The folder " + Lists() + "/inner/gone does not exist."));
}

TEST_F(DialogTest, NamesThatAreNoValidTextAreOfferedToo) {
    const fs::path current = fs::current_path();
    for (const char* file : {"caf\xE9.m3u", "caf\xE9.txt", "plain.m3u"})
        std::ofstream(current / file) << "list";
    fs::create_directories(current / "inner/m\xFCsik");
    const auto choose = [](const QString& name) {
        return [=](QFileDialog& dialog) {
            auto* odd = dialog.findChild<QListWidget*>("OddNames");
            ASSERT_TRUE(QTest::qWaitFor([odd] { return odd->count() == 1; }));
            EXPECT_EQ(odd->item(0)->text(), name);
            QTest::mouseClick(odd->viewport(), Qt::LeftButton, {},
                              odd->visualItemRect(odd->item(0)).center());
            ClickOn(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open));
        };
    };
    const auto load = [] { return cDialog::GetOpenName("Load", "Lists", "*.m3u", {}, false); };
    EXPECT_EQ(platform::PathFromText(During(load, {choose("café.m3u")})), current / "caf\xE9.m3u");
    EXPECT_EQ(platform::PathFromText(During(Browse, {choose("müsik")})),
              current / "inner/m\xFCsik");
}

TEST_F(DialogTest, ADesktopsAnswerStandsForTheOneNameThatLooksLikeIt) {
    const QString folder = Lists() + "/m\uFFFDsik";
    fs::create_directory("m\xFCsik");
    for (const char* song : {"caf\xE9 1.mp3", "caf\xE9 2.mp3", "caf\xE8 2.mp3"})
        std::ofstream(fs::path("m\xFCsik") / song) << "song";
    const auto meant = [](const QUrl& url) {
        return platform::PathFromText(toolkit::PathOfAnswer(url)).filename();
    };
    EXPECT_EQ(meant(QUrl::fromLocalFile(folder + "/caf\uFFFD 1.mp3")), "caf\xE9 1.mp3");
    EXPECT_EQ(meant(QUrl("file://" + Lists() + "/m%FCsik/caf%E9%201.mp3")), "caf\xE9 1.mp3");
    EXPECT_EQ(meant(QUrl::fromLocalFile(folder + "/caf\uFFFD 2.mp3")), "caf\uFFFD 2.mp3");
}

TEST_F(DialogTest, ACancelledOpenGivesTheInitialNameAndBlanks) {
    const auto open = [] { return cDialog::GetOpenName("Open", "Songs", "*.mp3", "x.mp3", true); };
    const Step escape = [](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); };
    EXPECT_EQ(During(open, {escape}), "x.mp3" + QString(1024, u' '));
    EXPECT_EQ(QDir::currentPath(), Lists());
}

TEST_F(DialogTest, PlacesOfSongsStandAtTheSideInThisProgramOnly) {
    const QList<QUrl> others = QFileDialog().sidebarUrls();
    fs::create_directory("Music");
    platform::SetProgramFolder(fs::current_path());
    During(Browse, {[](QFileDialog& dialog) {
               const auto* places = dialog.findChild<QListView*>("sidebar")->model();
               EXPECT_EQ(places->index(0, 0).data(Qt::AccessibleTextRole), "Sample songs");
               EXPECT_EQ(places->rowCount(), 3);
               dialog.reject();
           }});
    platform::SetProgramFolder({});
    EXPECT_EQ(QFileDialog().sidebarUrls(), others);
}

TEST_F(DialogTest, ChangingToAUselessFolderChangesNothingAndToNoneLeadsToTheDocuments) {
    for (const char* folder : {"/", "/.", "..", "/no/such/folder"}) {
        toolkit::ChangeToFolder(folder);
        EXPECT_EQ(QDir::currentPath(), Lists()) << folder;
    }
    fs::create_directories(platform::DocumentsFolder());
    toolkit::ChangeToFolder({});
    EXPECT_EQ(fs::current_path(), platform::DocumentsFolder());
}

TEST(Numbers, HaveAsciiDigitsInAnyLocale) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    toolkit::WriteNumbersInEnglish();
    EXPECT_EQ(QLocale().toString(1234), "1,234");
    QLocale::setDefault(before);
}

} // namespace
