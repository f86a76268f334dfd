#include "editor/f_Edit.h"
#include "library/c_ID3.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "tests/Looks.h"
#include "tests/Quit.h"
#include "tests/Robot.h"
#include "tests/TemporaryFolder.h"
#include "toolkit/Stage.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <functional>
#include <tuple>
#include <utility>

namespace fs = std::filesystem;

namespace {

using toolkit::Stage;

class TitleDialogTest : public testing::Test {
protected:
    /// A file tagged "Old Title", "Old Artist", "Old Album".
    fs::path MakeSong(const fs::path& name) {
        const fs::path file = mFolder.Write(name, std::string(200, 'x'));
        c_ID3 tag;
        tag.SetTitle("Old Title");
        tag.SetArtist("Old Artist");
        tag.SetAlbum("Old Album");
        tag.PutIdTag(file);
        return file;
    }

    QString Fields() const {
        return mDialog.tFileName->text() + u'|' + mDialog.tSongTitle->text() + u'|' +
               mDialog.tArtist->text();
    }

    /// Runs the dialog on a song while the user does `act`, which must close it. Returns the file's
    /// path.
    fs::path Run(const fs::path& song, const std::function<void()>& act,
                 const editor::Series& series = {}) {
        bool acted = false;
        Robot robot([&] {
            if (mDialog.isVisible() && !mDialog.tFileName->isReadOnly() &&
                !std::exchange(acted, true))
                act();
        });
        const QString key = mDialog.Run(song, series);
        mMessages = robot.Messages() + robot.Frames();
        EXPECT_FALSE(mDialog.isVisible());
        return platform::PathFromKey(key);
    }

    /// As `Run`, on some song; then cancels.
    void Use(const std::function<void()>& act) {
        Run(MakeSong("some.mp3"), [&] {
            act();
            ClickOn(mDialog.cmdCancel);
        });
    }

    static void Type(QLineEdit* box, const QString& text) {
        box->selectAll();
        QTest::keyClicks(box, text);
    }

    platform::QuitWatch mQuitWatch;
    TemporaryFolder mFolder;
    f_Edit mDialog;
    QStringList mMessages;
};

TEST_F(TitleDialogTest, ApplyingWritesTheTagAndRenamesTheFileUnlessItsNameIsLeftOrEmpty) {
    // A file's name, as it is shown, what is typed, and the name after that.
    const std::tuple<std::string, QString, QString, std::string> cases[] = {
        {"old name.MP3", "old name", " new name ", "new name.mp3"},
        {"what: a\\b?.mp3", "what ab", "what ab", "what: a\\b?.mp3"},
        {" caf\xE9 .MP3", " café ", " café ", " caf\xE9 .MP3"},
        {"twice.mp3.mp3", "twice.mp3", "twice.mp3", "twice.mp3.mp3"},
        {"other.ogg", "other.ogg", "other.ogg", "other.ogg"},
        {"two\nlines.mp3", "twolines", "  ", "two\nlines.mp3"},
        {"song.mp3", "song", ".MP3", "song.mp3"},
    };
    for (const auto& [name, shown, typed, after] : cases) {
        const QString fields = shown + "|Old Title|Old Artist";
        const fs::path now = Run(MakeSong(name), [&, text = typed] {
            EXPECT_EQ(Fields(), fields);
            EXPECT_EQ(mDialog.focusWidget(), mDialog.tFileName);
            EXPECT_TRUE(mDialog.IsModal());
            Type(mDialog.tFileName, "x");
            mDialog.tFileName->setText(text);
            Type(mDialog.tSongTitle, " A New Title That Is Longer Than A Tag ");
            Type(mDialog.tArtist, " New Artist ");
            ClickOn(mDialog.cmdApply);
        });
        EXPECT_FALSE(mDialog.Cancelled);
        EXPECT_EQ(now, mFolder.Path() / after);
        EXPECT_EQ(editor::ProblemsOf(mDialog.Changes()), "");
        c_ID3 tag;
        tag.GetIdTag(now);
        EXPECT_EQ(tag.Title() + u'|' + tag.Artist() + u'|' + tag.Album(),
                  "A New Title That Is Longer Than A Tag|New Artist|Old Album");
    }
    EXPECT_EQ(mFolder.Entries(), 7);
}

TEST_F(TitleDialogTest, CancellingLeavesFileAndTag) {
    const std::function<void()> ways[] = {
        [&] { ClickOn(mDialog.cmdCancel); },
        [&] { QTest::keyClick(mDialog.tArtist, Qt::Key_Escape); },
        [&] { EXPECT_FALSE(Stage::Get().close()); },
        [] { platform::RequestQuit(); },
    };
    const fs::path song = MakeSong("song.mp3");
    const std::string bytes = BytesOf(song);
    for (const auto& leave : ways) {
        const fs::path path = Run(song, [&] {
            Type(mDialog.tFileName, "other");
            Type(mDialog.tSongTitle, "Other");
            leave();
        });
        EXPECT_TRUE(mDialog.Cancelled);
        EXPECT_EQ(path, song);
        EXPECT_EQ(BytesOf(song), bytes);
    }
    ForgetQuit();
}

TEST_F(TitleDialogTest, TheNameBoxDropsForbiddenCharactersAlsoFromItsHistory) {
    Use([&] {
        QLineEdit& box = *mDialog.tFileName;
        const auto press = [&box](QKeySequence::StandardKey keys) {
            QTest::keySequence(&box, keys);
            return box.text();
        };
        QTest::keyClicks(&box, " a:b");
        EXPECT_EQ(box.text(), "some ab");
        box.setCursorPosition(6);
        QApplication::clipboard()->setText("x/y?\\<>|*z");
        EXPECT_EQ(press(QKeySequence::Paste), "some axyzb");
        EXPECT_EQ(box.cursorPosition(), 9);
        EXPECT_EQ(press(QKeySequence::Undo), "some ab");
        EXPECT_EQ(press(QKeySequence::Undo), "some");
        press(QKeySequence::Redo);
        EXPECT_EQ(press(QKeySequence::Redo), "some axyzb");
        box.setSelection(1, 3);
        QTest::keyClick(&box, Qt::Key_Asterisk);
        EXPECT_EQ(box.text(), "s axyzb");
    });
}

TEST_F(TitleDialogTest, TheHelperButtonsMakeTheFieldsFromEachOther) {
    const auto fields = [this](QPushButton* button) {
        ClickOn(button);
        return Fields();
    };
    Use([&] {
        Type(mDialog.tArtist, " ");
        Type(mDialog.tSongTitle, " ");
        EXPECT_EQ(fields(mDialog.cmdCombine), "some| | ");
        Type(mDialog.tArtist, " the ac/dc of it ");
        Type(mDialog.tSongTitle, "a_song");
        EXPECT_EQ(fields(mDialog.cmdCombine), "the acdc of it-a_song|a_song| the ac/dc of it ");
        EXPECT_EQ(fields(mDialog.cmdCapital), "The Acdc of It-a_song|A_song| the Ac/dc of It ");
        EXPECT_EQ(fields(mDialog.cmdRemove), "The Acdc of It-a song|A song|the Acdc of It");
        EXPECT_EQ(fields(mDialog.cmdGet), "The Acdc of It-a song|a song|The Acdc of It");
        QTest::keySequence(mDialog.tArtist, QKeySequence::Undo);
        EXPECT_EQ(mDialog.tArtist->text(), "the Acdc of It");
    });
    EXPECT_EQ(mMessages,
              QStringList({"No songtitle or artist to combine.", "Mp3 Editor, Information, OK"}));
}

TEST_F(TitleDialogTest, ShowsAPlaceInTheSeriesALongFolderAndWhatTagsHold) {
    PrepareLooks();
    const fs::path folder = "/" + std::string(120, 'f') + "/<b>Last</b>";
    const editor::Series series{{folder / "first.mp3", folder / "song.mp3", "last.mp3"}, 1};
    Run(
        series.songs[1],
        [&] {
            mDialog.tSongTitle->setText("A title");
            mDialog.tArtist->setText("An artist of far too many letters");
            ExpectLook(mDialog, "title-dialog");
            EXPECT_EQ(mDialog.lPath->accessibleName(),
                      "2 of 3: " + QString::fromStdString(folder.string() + "/"));
            ClickOn(mDialog.cmdCancel);
        },
        series);
}

} // namespace
