#include "editor/f_Edit.h"
#include "library/c_ID3.h"
#include "platform/Text.h"
#include "tests/HeldReads.h"
#include "tests/Looks.h"
#include "tests/Robot.h"
#include "tests/TemporaryFolder.h"
#include "toolkit/Stage.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <optional>
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

    TemporaryFolder mFolder;
    f_Edit mDialog;
    QStringList mMessages;
};

TEST_F(TitleDialogTest, ApplyingWritesTagAndNameAndTellsWhatIsNotDoneToTheLetter) {
    const QString fifteen = "Fifteen letters";
    const auto shorten = [](const fs::path& song) { fs::resize_file(song, 100); };
    const auto remove = [](const fs::path& song) { fs::remove(song); };
    const struct {
        fs::path song;
        QString shown;
        QString name, title, artist; // as they are typed
        QString after;
        const char* problem = "";
        std::function<void(const fs::path&)> spoil = {}; // meanwhile
    } cases[] = {
        {"old name.MP3", "old name", " new name ", " New ", " Band ", "new name.mp3|New|Band"},
        {"what: a\\b?.mp3", "what ab", "what ab", "New", "Band", "what: a\\b?.mp3|New|Band"},
        {" caf\xE9 .MP3", " café ", " café ", "New", "Band", " café .MP3|New|Band"},
        {"twice.mp3.mp3", "twice.mp3", "twice.mp3", "New", "Band", "twice.mp3.mp3|New|Band"},
        {"other.ogg", "other.ogg", "other.ogg", "New", "Band", "other.ogg|New|Band"},
        {"two\nlines.mp3", "twolines", "  ", "New", "Band", "two\nlines.mp3|New|Band"},
        {"song.mp3", "song", ".MP3", "New", "Band", "song.mp3|New|Band"},
        {"1.mp3", "1", "taken", "New", "Band", "1.mp3|New|Band", "called \"taken.mp3\""},
        {"2.mp3", "2", "2", "Старый", "Band", "2.mp3|??????|Band", "all letters of the title"},
        {"3.mp3", "3", "3", fifteen.repeated(4), QString(31, u'b'),
         "3.mp3|" + fifteen.repeated(4).first(59) + '|' + QString(30, u'b'),
         "is too long; the tag has \"bbb"},
        {"4.mp3", "4", "four", "New", "Band", "four.mp3|Old Title|Old Artist", "read-only",
         MakeReadOnly},
        {"5.mp3", "5", "5", "New", "Band", "5.mp3||", "too short", shorten},
        {"6.mp3", "6", "six", "New", "Band", "6.mp3||", "not there any more", remove},
    };
    const fs::path taken = mFolder.Write("taken.mp3", "another file");
    for (const auto& c : cases) {
        const fs::path song = MakeSong(c.song);
        const fs::path now = Run(song, [&] {
            EXPECT_EQ(Fields(), c.shown + "|Old Title|Old Artist");
            mDialog.tFileName->setText(c.name);
            mDialog.tSongTitle->setText(c.title);
            mDialog.tArtist->setText(c.artist);
            if (c.spoil)
                c.spoil(song);
            ClickOn(mDialog.cmdApply);
        });
        c_ID3 tag;
        tag.GetIdTag(now);
        EXPECT_EQ(platform::ShownText(now.filename()) + '|' + tag.Title() + '|' + tag.Artist(),
                  c.after);
        EXPECT_EQ(tag.Album(), tag.Title().isEmpty() ? "" : "Old Album");
        const QString problems = editor::ProblemsOf(mDialog.Changes());
        EXPECT_EQ(problems.isEmpty(), *c.problem == 0) << problems.toStdString();
        EXPECT_TRUE(problems.contains(c.problem)) << problems.toStdString();
    }
    EXPECT_EQ(BytesOf(taken), "another file");
    EXPECT_EQ(mFolder.Entries(), 13);
}

TEST_F(TitleDialogTest, CancellingLeavesFileAndTag) {
    const std::function<void()> ways[] = {
        [&] { ClickOn(mDialog.cmdCancel); },
        [&] { EXPECT_FALSE(Stage::Get().close()); },
    };
    const fs::path song = MakeSong("song.mp3");
    const std::string bytes = BytesOf(song);
    for (const auto& leave : ways) {
        const fs::path path = Run(song, [&] {
            mDialog.tFileName->setText("other");
            mDialog.tSongTitle->setText("Other");
            leave();
        });
        EXPECT_TRUE(mDialog.Cancelled);
        EXPECT_EQ(path, song);
        EXPECT_EQ(BytesOf(song), bytes);
    }
}

TEST_F(TitleDialogTest, ClosesAtOnceWhileTheDiskHoldsBackWhatIsApplied) {
    std::optional<HeldReads> held;
    Robot robot([&] {
        if (mDialog.isVisible() && !mDialog.tFileName->isReadOnly() && !held) {
            held.emplace("song.mp3");
            ClickOn(mDialog.cmdApply);
        } else if (held && held->Waiting() > 0) {
            Stage::Get().close();
            EXPECT_FALSE(mDialog.isVisible());
            held.reset();
        }
    });
    mDialog.Run(MakeSong("song.mp3"));
    EXPECT_FALSE(held);
}

TEST_F(TitleDialogTest, TheNameBoxDropsForbiddenCharactersAlsoFromItsHistory) {
    QLineEdit& box = *mDialog.tFileName;
    Run(MakeSong("some.mp3"), [&] {
        QTest::keyClicks(&box, " a:b");
        EXPECT_EQ(box.text(), "some ab");
        box.setCursorPosition(6);
        QApplication::clipboard()->setText("x/y?\\<>|*z");
        box.paste();
        EXPECT_EQ(box.text(), "some axyzb");
        EXPECT_EQ(box.cursorPosition(), 9);
        box.undo();
        EXPECT_EQ(box.text(), "some ab");
        box.undo();
        EXPECT_EQ(box.text(), "some");
        box.redo();
        box.redo();
        EXPECT_EQ(box.text(), "some axyzb");
        ClickOn(mDialog.cmdCancel);
    });
}

TEST_F(TitleDialogTest, TheHelperButtonsMakeTheFieldsFromEachOther) {
    // The fields after each button, of an artist and a title in letters of all kinds.
    const QString artist = " the AC/DC of (it), ÉTÉ nor for or ";
    const QString title = "A~<>{}+=\\?_SONG  is 2nd o'clock, and a, if am on but";
    const std::pair<QPushButton*, QString> steps[] = {
        {mDialog.cmdCombine, "the ACDC of (it), ÉTÉ nor for or-"
                             "A~{}+=_SONG  is 2nd o'clock, and a, if am on but|" +
                                 title + '|' + artist},
        {mDialog.cmdCapital, "The Acdc of (it), Été nor for Or-"
                             "a~{}+=_song  is 2nd O'clock, and a, if am on but|"
                             "A~<>{}+=\\?_song  is 2nd O'clock, and a, if am on but|"
                             " the Ac/dc of (it), Été nor for Or "},
        {mDialog.cmdRemove, "The Acdc of (it), Été nor for Or-"
                            "a song  is 2nd O'clock, and a, if am on but|"
                            "A song  is 2nd O'clock, and a, if am on but|"
                            "the Acdc of (it), Été nor for Or"},
        {mDialog.cmdGet, "The Acdc of (it), Été nor for Or-"
                         "a song  is 2nd O'clock, and a, if am on but|"
                         "a song  is 2nd O'clock, and a, if am on but|"
                         "The Acdc of (it), Été nor for Or"}};
    // Names, and what is made of them.
    const std::pair<QString, QString> names[] = {{"The Band - The= Song", "The Song|The Band"},
                                                 {"band_song", "song|band"},
                                                 {"a-b-c_d_e", "a-b-c d e|Unknown"},
                                                 {"plain.MP3.name.mp3", "plain.name|Unknown"},
                                                 {"only-", "|only"}};
    Run(MakeSong("some.mp3"), [&] {
        mDialog.tArtist->clear();
        mDialog.tSongTitle->setText(" ");
        ClickOn(mDialog.cmdCombine);
        mDialog.tArtist->setText(artist);
        mDialog.tSongTitle->setText(title);
        for (const auto& [button, fields] : steps) {
            ClickOn(button);
            EXPECT_EQ(Fields(), fields);
        }
        mDialog.tArtist->undo();
        EXPECT_EQ(mDialog.tArtist->text(), "the Acdc of (it), Été nor for Or");
        for (const auto& [name, made] : names) {
            mDialog.tFileName->setText(name);
            ClickOn(mDialog.cmdGet);
            EXPECT_EQ(Fields(), name + '|' + made);
        }
        ClickOn(mDialog.cmdCancel);
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
            ClickOn(mDialog.cmdCancel);
        },
        series);
}

} // namespace
