#include "editor/f_Edit.h"
#include "library/c_ID3.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "tests/Robot.h"
#include "tests/TemporaryFolder.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <utility>

namespace fs = std::filesystem;

namespace {

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

    static QString TitleIn(const fs::path& file) {
        c_ID3 tag;
        tag.GetIdTag(file);
        return tag.Title();
    }

    /// Runs the dialog on a song; the user does `act`, which has to close it. The file's path.
    fs::path Run(const fs::path& song, const std::function<void()>& act) {
        bool acted = false;
        Robot robot([&] {
            if (mDialog.isVisible() && !std::exchange(acted, true))
                act();
        });
        const QString key = mDialog.Run(song);
        mMessages = robot.Messages();
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

TEST_F(TitleDialogTest, ApplyingWritesTheTagAndRenamesTheFile) {
    const fs::path song = MakeSong("old name.MP3");
    const std::string sound = BytesOf(song).substr(0, 199);
    const fs::path renamed = Run(song, [&] {
        EXPECT_EQ(mDialog.tFileName->text(), "old name");
        EXPECT_EQ(mDialog.tSongTitle->text(), "Old Title");
        EXPECT_EQ(mDialog.tArtist->text(), "Old Artist");
        EXPECT_EQ(mDialog.lPath->text(), QString::fromStdString(mFolder.Path().string() + "/"));
        EXPECT_EQ(mDialog.focusWidget(), mDialog.tFileName);
        EXPECT_EQ(QApplication::activeModalWidget(), &mDialog);
        Type(mDialog.tFileName, " new name ");
        Type(mDialog.tSongTitle, " A New Title That Is Longer Than A Tag ");
        Type(mDialog.tArtist, " New Artist ");
        ClickOn(mDialog.cmdApply);
    });
    EXPECT_FALSE(mDialog.Cancelled);
    EXPECT_EQ(renamed, mFolder.Path() / "new name.mp3");
    EXPECT_EQ(mDialog.tFileName->text(), "new name.mp3");
    EXPECT_EQ(mFolder.Entries(), 1);
    EXPECT_EQ(BytesOf(renamed).substr(0, 199), sound);
    c_ID3 tag;
    tag.GetIdTag(renamed);
    EXPECT_EQ(tag.Title(), "A New Title That Is Longer Than A Tag");
    EXPECT_EQ(tag.Artist(), "New Artist");
    EXPECT_EQ(tag.Album(), "Old Album");
}

TEST_F(TitleDialogTest, CancellingLeavesFileAndTag) {
    const std::function<void()> ways[] = {
        [&] { ClickOn(mDialog.cmdCancel); },
        [&] { QTest::keyClick(mDialog.tArtist, Qt::Key_Escape); },
        [&] { EXPECT_FALSE(mDialog.close()); },
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
    // Qt forgets that it was asked to quit when its main loop ends.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
}

TEST_F(TitleDialogTest, AFileThatCannotBeRenamedStaysAndIsTagged) {
    const fs::path taken = mFolder.Write("taken.mp3", "another file");
    for (const QString& name : {QString("taken"), QString(252, u'n')}) {
        const fs::path song = MakeSong("song.mp3");
        const fs::path path = Run(song, [&] {
            mDialog.tFileName->setText(name);
            Type(mDialog.tSongTitle, "New Title");
            QTest::keyClick(mDialog.tSongTitle, Qt::Key_Return);
        });
        EXPECT_EQ(path, song);
        EXPECT_EQ(mDialog.tFileName->text(), name + ".mp3");
        EXPECT_EQ(TitleIn(song), "New Title");
        EXPECT_EQ(mFolder.Entries(), 2);
    }
    EXPECT_EQ(BytesOf(taken), "another file");
}

TEST_F(TitleDialogTest, AReadOnlyFileIsRenamedAndMadeWritableButKeepsItsTag) {
    const fs::path song = MakeSong("song.mp3");
    MakeReadOnly(song);
    const fs::path renamed = Run(song, [&] {
        Type(mDialog.tFileName, "renamed");
        Type(mDialog.tSongTitle, "New Title");
        ClickOn(mDialog.cmdApply);
    });
    EXPECT_EQ(renamed, mFolder.Path() / "renamed.mp3");
    EXPECT_EQ(TitleIn(renamed), "Old Title");
    EXPECT_NE(fs::status(renamed).permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(TitleDialogTest, ANameLeftAsItWasShownOrEmptyKeepsTheFilesOwnName) {
    const struct {
        std::string name;
        QString shown;
    } cases[] = {{"what: a\\b?.mp3", "what ab"}, {" caf\xE9 .MP3", " café "},
                 {"twice.mp3.mp3", "twice.mp3"}, {".mp3", ""},
                 {"other.ogg", "other.ogg"},     {"two\nlines.mp3", "twolines"}};
    for (const auto& [name, shown] : cases) {
        const fs::path song = MakeSong(name);
        EXPECT_EQ(Run(song,
                      [&, text = shown] {
                          EXPECT_EQ(mDialog.tFileName->text(), text);
                          Type(mDialog.tFileName, "x");
                          mDialog.tFileName->setText(text);
                          ClickOn(mDialog.cmdApply);
                      }),
                  song);
        EXPECT_TRUE(fs::exists(song)) << song;
        const QString ending = shown.endsWith(".mp3") ? "" : ".mp3";
        EXPECT_EQ(mDialog.tFileName->text(), shown + ending);
    }
    for (const QString& nothing : {QString("  "), QString(".MP3")}) {
        const fs::path song = MakeSong("song.mp3");
        EXPECT_EQ(Run(song,
                      [&] {
                          mDialog.tFileName->setText(nothing);
                          ClickOn(mDialog.cmdApply);
                      }),
                  song);
        EXPECT_EQ(mDialog.tFileName->text(), "song.mp3");
    }
    EXPECT_EQ(mFolder.Entries(), 7);
}

TEST_F(TitleDialogTest, TheNameBoxDropsForbiddenCharactersWhereverTheyComeFrom) {
    Use([&] {
        QLineEdit& box = *mDialog.tFileName;
        Type(&box, "a:b");
        EXPECT_EQ(box.text(), "ab");

        box.setCursorPosition(1);
        QApplication::clipboard()->setText("x/y?z");
        QTest::keySequence(&box, QKeySequence::Paste);
        EXPECT_EQ(box.text(), "axyzb");
        EXPECT_EQ(box.cursorPosition(), 4);

        box.setSelection(1, 3);
        QTest::keyClick(&box, Qt::Key_Asterisk);
        EXPECT_EQ(box.text(), "ab");
        EXPECT_EQ(box.cursorPosition(), 1);

        box.setText("<set>");
        EXPECT_EQ(box.text(), "set");
    });
}

TEST_F(TitleDialogTest, UndoAndRedoNeverMeetForbiddenCharacters) {
    Use([&] {
        QLineEdit& box = *mDialog.tFileName;
        QTest::keyClicks(&box, " a:b");
        QApplication::clipboard()->setText("x/y");
        QTest::keySequence(&box, QKeySequence::Paste);
        EXPECT_EQ(box.text(), "some abxy");
        QTest::keySequence(&box, QKeySequence::Undo);
        EXPECT_EQ(box.text(), "some ab");
        QTest::keySequence(&box, QKeySequence::Undo);
        EXPECT_EQ(box.text(), "some");
        QTest::keySequence(&box, QKeySequence::Redo);
        QTest::keySequence(&box, QKeySequence::Redo);
        EXPECT_EQ(box.text(), "some abxy");

        QTest::keyClick(&box, Qt::Key_Colon);
        QTest::keySequence(&box, QKeySequence::Redo);
        EXPECT_EQ(box.text(), "some abxy");
        QTest::keySequence(&box, QKeySequence::Undo);
        EXPECT_EQ(box.text(), "some ab");
    });
}

TEST_F(TitleDialogTest, TheHelperButtonsMakeTheFieldsFromEachOther) {
    Use([&] {
        QLineEdit& name = *mDialog.tFileName;
        Type(mDialog.tArtist, " the ac/dc of it ");
        Type(mDialog.tSongTitle, "a_song");
        ClickOn(mDialog.cmdCombine);
        EXPECT_EQ(name.text(), "the acdc of it-a_song");
        ClickOn(mDialog.cmdCapital);
        EXPECT_EQ(name.text(), "The Acdc of It-a_song");
        EXPECT_EQ(mDialog.tSongTitle->text(), "A_song");
        EXPECT_EQ(mDialog.tArtist->text(), " the Ac/dc of It ");
        ClickOn(mDialog.cmdRemove);
        EXPECT_EQ(name.text(), "The Acdc of It-a song");
        EXPECT_EQ(mDialog.tSongTitle->text(), "A song");
        EXPECT_EQ(mDialog.tArtist->text(), "the Acdc of It");
        ClickOn(mDialog.cmdGet);
        EXPECT_EQ(mDialog.tSongTitle->text(), "a song");
        EXPECT_EQ(mDialog.tArtist->text(), "The Acdc of It");
        QTest::keySequence(mDialog.tArtist, QKeySequence::Undo);
        EXPECT_EQ(mDialog.tArtist->text(), "the Acdc of It");
    });
    EXPECT_TRUE(mMessages.isEmpty());
}

TEST_F(TitleDialogTest, NothingToCombineIsToldAndTheNameStays) {
    Use([&] {
        Type(mDialog.tArtist, " ");
        Type(mDialog.tSongTitle, " ");
        ClickOn(mDialog.cmdCombine);
        EXPECT_EQ(mDialog.tFileName->text(), "some");
    });
    EXPECT_EQ(mMessages, QStringList("No songtitle or artist to combine."));
}

TEST_F(TitleDialogTest, ALongFolderIsShortenedAndTheButtonsKeepTheirCaptionsWhole) {
    const fs::path folder = mFolder.Path() / std::string(120, 'f') / "<b>Last</b>";
    fs::create_directories(folder);
    Run(folder / "missing.mp3", [&] {
        const QLabel& path = *mDialog.lPath;
        EXPECT_LE(path.sizeHint().width(), path.width());
        EXPECT_TRUE(path.text().endsWith("/"));
        EXPECT_EQ(path.accessibleName(), QString::fromStdString(folder.string() + "/"));
        for (const auto* button : mDialog.findChildren<QPushButton*>()) {
            EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
            EXPECT_TRUE(mDialog.rect().contains(button->geometry()));
        }
        ClickOn(mDialog.cmdApply);
    });
    EXPECT_FALSE(fs::exists(folder / "missing.mp3"));
}

} // namespace
