#include "app/c_Quick.h"
#include "app/f_Load.h"
#include "app/f_Quick.h"
#include "editor/f_Editor.h"
#include "library/ListLook.h"
#include "library/MarkJournal.h"
#include "library/c_ID3.h"
#include "platform/ProgramFolder.h"
#include "platform/Settings.h"
#include "platform/Wait.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"
#include "toolkit/Stage.h"

#include <QTest>

namespace fs = std::filesystem;

namespace {

class QuickTest : public testing::Test {
protected:
    /// Presses `button` once, answers its dialog with `chosen` (nothing cancels), and leaves by the
    /// close button when the chooser comes back.
    void Run(toolkit::PictureBox* button, const fs::path& chosen, bool saysYes = true) {
        bool pressed = false;
        Robot robot([&] {
            if (AnswerFileDialog(QString::fromStdString(chosen.string())))
                return mAnswered();
            if (form.isVisible() && (pressed || button->isVisible())) {
                EXPECT_TRUE(pressed || Minimises(form));
                ClickOn(std::exchange(pressed, true) ? form.pX : button);
            }
        });
        robot.mSaysYes = saysYes;
        c_Quick quick(form, load);
        mPath = quick.GetM3U();
        mExit = quick.ExitProgram();
        EXPECT_TRUE(load.isVisible()) << "the game is about to load";
        quick.LoadingDone();
        EXPECT_FALSE(load.isVisible());
        mMessages = robot.Messages();
        mFrames = robot.Frames();
    }

    fs::path QuickList() const { return mFolder.Path() / "PlayList" / "Quick.m3u"; }

    platform::QuitWatch mQuitWatch;
    SongFolder mFolder;
    f_Quick form;
    f_Load load;
    fs::path mPath;
    bool mExit = false;
    QStringList mMessages;
    std::function<void()> mAnswered = [] {};
    QStringList mFrames;
};

TEST_F(QuickTest, AFolderBecomesTheQuickPlaylist) {
    mFolder.MakeSongs(10);
    fs::rename(mFolder.Path() / "Music/song3.mp3", mFolder.Path() / "Music/SONG3.MP3");
    mFolder.MakeSongs(1, "Music/deeper");
    Run(form.pUseDir, mFolder.Path() / "Music");
    EXPECT_EQ(mPath, QuickList());
    EXPECT_FALSE(mExit);
    EXPECT_TRUE(mMessages.isEmpty());
    const std::string list = BytesOf(QuickList());
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 1 + 2 * 11);
    EXPECT_NE(list.find("Music/SONG3.MP3\r\n"), std::string::npos);
    EXPECT_EQ(platform::ReadPathSetting("Songrush", "Dirs", "Mp3Dir", {}),
              mFolder.Path() / "Music");
}

TEST_F(QuickTest, AListThatCannotBeWrittenToItsPlaceIsToldAndPlayedIfItCanBeAnywhere) {
    mFolder.MakeSongs(10);
    const QString told = "Error Writing Playlist file:%1:\nInvalid argument";
    fs::create_directories(QuickList() / "in the way");
    Run(form.pUseDir, mFolder.Path() / "Music");
    EXPECT_EQ(mMessages, QStringList(told.arg(QuickList().c_str())));
    EXPECT_FALSE(mExit);
    EXPECT_NE(BytesOf(mPath).find("song9.mp3"), std::string::npos);
    fs::remove(mPath);
    fs::create_directories(mPath / "in the way, too");
    Run(form.pUseDir, mFolder.Path() / "Music");
    EXPECT_EQ(mMessages.value(1), told.arg(mPath.c_str()));
    EXPECT_TRUE(mExit);
    fs::remove_all(mPath);
}

TEST_F(QuickTest, AFolderThatCannotBeReadIsNamed) {
    const fs::path gone = mFolder.Path() / "gone";
    fs::create_directory(gone);
    mAnswered = [gone] { fs::remove(gone); };
    Run(form.pUseDir, gone);
    EXPECT_EQ(mMessages,
              QStringList(QStringLiteral("The folder %1 cannot be read.").arg(gone.c_str())));
    EXPECT_TRUE(mExit);
    EXPECT_FALSE(fs::exists(QuickList()));
}

TEST_F(QuickTest, ASongWithoutTitleIsAskedAbout) {
    c_ID3().PutIdTag(mFolder.MakeSongs(10)[4]);
    for (const bool yes : {true, false}) {
        Run(form.pUseDir, mFolder.Path() / "Music", yes);
        ASSERT_EQ(mMessages.size(), 1);
        EXPECT_TRUE(mMessages[0].startsWith("Warning playlist contains entries with no song"));
        EXPECT_EQ(mFrames, QStringList("Songrush, NoIcon, Yes, No"));
        EXPECT_EQ(mExit, !yes) << "No leads back to the chooser";
    }
}

TEST_F(QuickTest, APlaylistIsPickedAndItsFolderIsTheCurrentOne) {
    const fs::path list = mFolder.Path() / " Test.m3u ";
    fs::rename(mFolder.MakePlaylist(mFolder.MakeSongs(10)), list);
    Run(form.pUsePlayList, list);
    EXPECT_EQ(mPath, list);
    EXPECT_FALSE(mExit);
    EXPECT_EQ(fs::current_path(), mFolder.Path());
}

TEST_F(QuickTest, TheEditorLeadsBackUnlessItEndsTheProgram) {
    for (const bool ends : {true, false}) {
        int choosers = 0;
        Robot robot([&] {
            const auto* editor = dynamic_cast<f_Editor*>(toolkit::Stage::Get().Forms().Current());
            if (editor != nullptr)
                ClickOn(ends ? editor->pX : editor->pMenu);
            else if (form.isVisible())
                QTimer::singleShot(0, &form, [&, first = choosers++ == 0] { // after its click
                    ClickOn(first ? form.pEditor : form.pX);
                });
        });
        c_Quick quick(form, load);
        EXPECT_EQ(quick.GetM3U(), "");
        EXPECT_TRUE(quick.ExitProgram());
        EXPECT_EQ(choosers, ends ? 1 : 2);
    }
}

TEST_F(QuickTest, SongsThatCannotBePlayedAreToldBefore) {
    const std::vector<fs::path> songs = mFolder.MakeSongs(12);
    const fs::path list = mFolder.MakePlaylist(songs);
    fs::remove(songs[0]);
    fs::resize_file(songs[1], 0);
    fs::resize_file(songs[2], fs::file_size(songs[2]) / 2);
    for (const bool yes : {true, false}) {
        Run(form.pUsePlayList, list, yes);
        EXPECT_EQ(mMessages, QStringList("3 of 12 songs cannot be played: they are missing, cannot "
                                         "be read or are shorter than 5 seconds.\n"
                                         "Do you want to play with the others?"));
        EXPECT_EQ(mExit, !yes) << "No leads back to the chooser";
    }
    fs::remove_all(mFolder.Path() / "Music");
    Run(form.pUsePlayList, list);
    EXPECT_EQ(mMessages, QStringList("None of the songs in this playlist can be played."));
    EXPECT_TRUE(mExit);
}

TEST_F(QuickTest, TheListPlayedLastIsPlayedOnOrFromTheStart) {
    const std::vector<fs::path> songs = mFolder.MakeSongs(12);
    const fs::path list = mFolder.MakePlaylist(songs);
    Run(form.pUsePlayList, list);
    library::MarkJournal(list).Played(songs[3]);
    const std::string bytes = BytesOf(list);
    for (const auto& [button, unplayed] : {std::pair(form.pPlayOn, 11), {form.pStartOver, 12}}) {
        Run(button, {});
        EXPECT_EQ(mPath, list);
        EXPECT_FALSE(mExit);
        EXPECT_EQ(form.pPlayOn->accessibleName(), "Play on: Test (11 of 12 not yet played)");
        EXPECT_EQ(library::CountUnplayed(list, {}).unplayed, unplayed);
    }
    EXPECT_EQ(BytesOf(list), bytes);
    fs::remove(list);
    EXPECT_EQ(library::CountUnplayed(list, {}).songs, 0);
    EXPECT_FALSE(fs::exists(list));
}

TEST_F(QuickTest, ClosingTheWaitingWindowGivesTheScanUp) {
    mFolder.MakeSongs(12);
    // The window is closed the moment that it appears.
    struct Closer : QObject {
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::Show && !std::exchange(closed, true))
                QTimer::singleShot(0, watched, [watched] {
                    QTest::keyClick(static_cast<QWidget*>(watched), Qt::Key_Escape);
                });
            return false;
        }
        bool closed = false;
    } closer;
    load.installEventFilter(&closer);
    Run(form.pUseDir, mFolder.Path() / "Music");
    EXPECT_TRUE(mExit);
    EXPECT_FALSE(fs::exists(QuickList()));
}

} // namespace
