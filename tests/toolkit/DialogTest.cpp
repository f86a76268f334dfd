#include "platform/ProgramFolder.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "tests/Quit.h"
#include "tests/TemporaryFolder.h"
#include "toolkit/FileDialog.h"
#include "toolkit/SelectFolder.h"
#include "toolkit/Style.h"
#include "toolkit/cDialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <functional>

namespace {

namespace fs = std::filesystem;

/// Acts on the dialog that is shown next.
template <typename Dialog> void OnNext(std::function<void(Dialog&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr) << "not the dialog that was expected";
        act(*dialog);
    });
}

void Press(QDialog& dialog, QDialogButtonBox::StandardButton button) {
    auto* box = dialog.findChild<QDialogButtonBox*>();
    QTest::mouseClick(box->button(button), Qt::LeftButton);
}

void Type(QFileDialog& dialog, const QString& name) {
    auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
    // Without the focus a file listed under the first letters would stay the chosen one.
    dialog.activateWindow();
    edit->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([edit] { return edit->hasFocus(); }));
    QTest::keyClicks(edit, name);
}

class DialogTest : public testing::Test {
protected:
    DialogTest() {
        fs::create_directory(mFolder.Path() / "lists");
        toolkit::ChangeToFolder(mFolder.Path() / "lists");
        EXPECT_EQ(QDir::currentPath(), Lists());
    }
    ~DialogTest() override { fs::current_path(mBefore); }

    QString Lists() const { return QString::fromStdString(mFolder.Path().string() + "/lists"); }

    static QString Save() { return cDialog::GetSaveName("Save", "Lists", "*.m3u"); }

private:
    TemporaryFolder mFolder;
    fs::path mBefore = fs::current_path();
};

TEST_F(DialogTest, SavingMovesToTheFolderAndAsksBeforeAFileIsReplacedAlsoWithoutItsEnding) {
    fs::create_directory("inner");
    std::ofstream("inner/rock.m3u") << "list";
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        OnNext<QFileDialog>([answer](QFileDialog& dialog) {
            Type(dialog, "inner/rock");
            OnNext<QMessageBox>([answer](QMessageBox& box) { box.button(answer)->click(); });
            Press(dialog, QDialogButtonBox::Save);
            if (answer == QMessageBox::No)
                dialog.reject();
        });
        EXPECT_EQ(Save(), answer == QMessageBox::Yes ? Lists() + "/inner/rock" : QString());
    }
    EXPECT_EQ(QDir::currentPath(), Lists() + "/inner");
}

TEST_F(DialogTest, NamesThatAreNoValidTextAreOfferedToo) {
    const fs::path current = fs::current_path();
    for (const char* file : {"caf\xE9.m3u", "caf\xE9.txt", "plain.m3u"})
        std::ofstream(current / file) << "list";
    fs::create_directories(current / "inner/m\xFCsik");
    // Chooses the one odd name, or types another one after it.
    const auto choose = [](const QString& name, const QString& typed = {}) {
        OnNext<QFileDialog>([=](QFileDialog& dialog) {
            auto* odd = dialog.findChild<QListWidget*>(QStringLiteral("OddNames"));
            ASSERT_EQ(odd->count(), 1);
            EXPECT_EQ(odd->item(0)->text(), name);
            QTest::mouseClick(odd->viewport(), Qt::LeftButton, {},
                              odd->visualItemRect(odd->item(0)).center());
            if (!typed.isEmpty())
                Type(dialog, typed);
            Press(dialog, QDialogButtonBox::Open);
        });
    };
    const auto load = [] { return cDialog::GetOpenName("Load", "Lists", "*.m3u", {}, false); };
    choose("café.m3u");
    EXPECT_EQ(platform::PathFromText(load()), current / "caf\xE9.m3u");
    choose("café.m3u", "plain.m3u");
    EXPECT_EQ(load(), Lists() + "/plain.m3u");
    choose("müsik");
    QWidget owner;
    const QString browsed = toolkit::BrowseForFolder(&owner, "Add", current / "inner");
    EXPECT_EQ(platform::PathFromText(browsed), current / "inner/m\xFCsik");
}

TEST_F(DialogTest, ACancelledOpenGivesTheInitialNameAndBlanks) {
    OnNext<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(cDialog::GetOpenName("Open", "Songs", "*.mp3", "x.mp3", true),
              "x.mp3" + QString(1024, u' '));
    EXPECT_EQ(QDir::currentPath(), Lists());
}

TEST_F(DialogTest, AQuitEndsAnOpenDialog) {
    const platform::QuitWatch watch;
    OnNext<QFileDialog>([](QFileDialog&) { platform::RequestQuit(); });
    EXPECT_EQ(Save(), QString());
    ForgetQuit();
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
    toolkit::FileDialog dialog(nullptr, QString(), QString());
    const auto* files = dialog.findChild<QTreeView*>("treeView");
    for (const int column : {1, 3}) { // sizes and times
        const auto* delegate =
            qobject_cast<QStyledItemDelegate*>(files->itemDelegateForColumn(column));
        ASSERT_NE(delegate, nullptr);
        EXPECT_EQ(delegate->displayText("\u0661\u0662 KiB", QLocale()), "12 KiB");
    }
}

} // namespace
