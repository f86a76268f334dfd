#include "app/c_Quick.h"
#include "app/f_Load.h"
#include "app/f_Quick.h"
#include "editor/f_Editor.h"
#include "library/ListLook.h"
#include "library/MarkJournal.h"
#include "platform/Settings.h"
#include "platform/Wait.h"
#include "tests/HeldReads.h"
#include "tests/Looks.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"
#include "toolkit/Stage.h"

#include <QLabel>
#include <QTest>
#include <QTimer>
#include <tuple>

namespace fs = std::filesystem;

namespace {

using toolkit::Stage;

class QuickTest : public testing::Test {
protected:
    /// Presses `button` once, answers its dialog with `chosen` (nothing cancels), and leaves by the
    /// close button when the chooser comes back.
    void Run(toolkit::PictureBox* button, const fs::path& chosen, bool saysYes = true) {
        int presses = 0;
        Robot robot([&] {
            if (AnswerFileDialog(QString::fromStdString(chosen.string())))
                return mAnswered();
            if (load.isVisible() && std::exchange(mGivesUp, false)) {
                EXPECT_TRUE(load.lLoading->text().startsWith("Searching for MP3s: 0 found"));
                QTest::keyClick(&load, Qt::Key_Escape);
            }
            if (const auto* editor = dynamic_cast<f_Editor*>(Stage::Get().Forms().Current())) {
                EXPECT_EQ(editor->pMenu->accessibleName(), "Play Game");
                return ClickOn(mEditorEnds ? editor->pX : editor->pMenu);
            }
            if (form.isVisible() && (presses > 0 || button->isVisible())) {
                EXPECT_TRUE(presses > 0 || Minimises(form));
                if (button == form.pPlayOn && presses == 0)
                    ExpectLook(form, "chooser");
                EXPECT_FALSE(load.isVisible()) << "over the chooser";
                auto* box = presses++ == 0 ? button : form.pX;
                QTimer::singleShot(0, box, [box] { ClickOn(box); }); // which may last
            }
        });
        robot.mSaysYes = saysYes;
        c_Quick quick(form, load);
        mPath = quick.GetM3U();
        EXPECT_EQ(presses, mEditorEnds || !quick.ExitProgram() ? 1 : 2);
        mExit = quick.ExitProgram();
        EXPECT_TRUE(load.isVisible()) << "the game is about to load";
        quick.LoadingDone();
        EXPECT_FALSE(load.isVisible());
        mMessages = robot.Messages();
        mFrames = robot.Frames();
    }

    platform::QuitWatch mQuitWatch;
    SongFolder mFolder;
    const fs::path mQuickList = mFolder.Path() / "PlayList" / "Quick.m3u";
    f_Quick form;
    f_Load load;
    fs::path mPath;
    bool mExit = false;
    QStringList mMessages;
    QStringList mFrames;
    std::function<void()> mAnswered = [] {};
    bool mEditorEnds = false; // the program
    bool mGivesUp = false;    // closes the waiting window as soon as it is there
};

TEST_F(QuickTest, AFolderBecomesTheQuickPlaylistInItsPlaceOrElsewhere) {
    mFolder.MakeSongs(10);
    fs::rename(mFolder.Path() / "Music/song3.mp3", mFolder.Path() / "Music/SONG3.MP3");
    mFolder.MakeSongs(1, "Music/deeper");
    const fs::path folder = mFolder.Path() / "Music";
    library::MarkJournal(mQuickList).Played(folder / "song1.mp3"); // in an earlier game
    Run(form.pUseDir, folder);
    EXPECT_EQ(mPath, mQuickList);
    EXPECT_FALSE(mExit);
    EXPECT_TRUE(mMessages.isEmpty());
    const std::string list = BytesOf(mQuickList);
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 1 + 2 * 11);
    EXPECT_TRUE(list.find("Music/SONG3.MP3\r\n") != list.npos) << list;
    EXPECT_EQ(library::CountUnplayed(mQuickList, {}).unplayed, 11);
    EXPECT_EQ(platform::ReadPathSetting("Songrush", "Dirs", "Mp3Dir", {}), folder);

    const QString told = "Error Writing Playlist file:%1:\nInvalid argument";
    fs::remove(mQuickList);
    fs::create_directories(mQuickList / "in the way");
    Run(form.pUseDir, folder);
    EXPECT_EQ(mMessages, QStringList(told.arg(mQuickList.c_str())));
    EXPECT_EQ(mFrames, QStringList("Songrush, Information, OK"));
    EXPECT_FALSE(mExit);
    EXPECT_EQ(BytesOf(mPath), list);
    fs::remove(mPath);
    fs::create_directories(mPath / "in the way, too");
    Run(form.pUseDir, folder);
    EXPECT_EQ(mMessages.value(1), told.arg(mPath.c_str()));
    EXPECT_TRUE(mExit);
    fs::remove_all(mPath);

    mGivesUp = true;
    fs::remove_all(mQuickList);
    const HeldReads held("/Music/");
    Run(form.pUseDir, folder);
    EXPECT_TRUE(mExit);
    EXPECT_FALSE(fs::exists(mQuickList));
}

TEST_F(QuickTest, WhatCannotBePlayedIsToldOrAskedAboutAndNoLeadsBack) {
    const auto songs = mFolder.MakeSongs(12);
    const fs::path list = mFolder.MakePlaylist(songs);
    fs::remove(songs[0]);
    fs::resize_file(songs[1], 0);
    fs::resize_file(songs[2], fs::file_size(songs[2]) / 2);
    mFolder.MakeSongs(9, "Few");
    const fs::path gone = mFolder.Path() / "gone";
    mAnswered = [gone] { fs::remove(gone); };
    const QString told = "Songrush, Information, OK";
    const QString asked = "Songrush, NoIcon, Yes, No";
    const std::tuple<toolkit::PictureBox*, fs::path, QString, QString> cases[] = {
        {form.pUseDir, {}, told, "No directory was selected."},
        {form.pUseDir, gone, told, QString("The folder %1 cannot be read.").arg(gone.c_str())},
        {form.pUseDir, mFolder.Path() / "Few", "Songrush, Critical, OK",
         "Songrush Requires atleast 10 MP3's to play.\nThis directory has 9 MP3's."},
        {form.pUseDir, mFolder.Path() / "Music", asked,
         "Warning playlist contains entries with no song titles.\n"},
        {form.pUsePlayList, list, asked,
         "3 of 12 songs cannot be played: they are missing, cannot be read or are shorter than 5 "
         "seconds.\nDo you want to play with the others?"},
    };
    for (const auto& [button, chosen, frame, message] : cases) {
        for (const bool yes : {true, false}) {
            fs::create_directory(gone);
            Run(button, chosen, yes);
            EXPECT_EQ(mFrames, QStringList(frame)) << message.toStdString();
            EXPECT_TRUE(mMessages.value(0).startsWith(message)) << message.toStdString();
            EXPECT_EQ(mExit, frame != asked || !yes) << message.toStdString();
        }
    }
}

TEST_F(QuickTest, TheEditorLeadsBackUnlessItEndsTheProgram) {
    for (const bool ends : {true, false}) {
        mEditorEnds = ends;
        Run(form.pEditor, {});
        EXPECT_EQ(mPath, "");
        EXPECT_TRUE(mExit);
    }
}

TEST_F(QuickTest, TheListPlayedLastIsPlayedOnOrFromTheStart) {
    const std::vector<fs::path> songs = mFolder.MakeSongs(12);
    const fs::path list = mFolder.Path() / " Test.m3u ";
    PrepareLooks();
    fs::rename(mFolder.MakePlaylist(songs), list);
    Run(form.pUsePlayList, list);
    EXPECT_EQ(mPath, list);
    library::MarkJournal(list).Played(songs[3]);
    const std::string bytes = BytesOf(list);
    for (const auto& [button, unplayed] : {std::pair(form.pPlayOn, 11), {form.pStartOver, 12}}) {
        fs::current_path("/");
        Run(button, {});
        EXPECT_EQ(mPath, list);
        EXPECT_FALSE(mExit);
        EXPECT_EQ(fs::current_path(), mFolder.Path()) << "where its paths begin";
        EXPECT_EQ(library::CountUnplayed(list, {}).unplayed, unplayed);
    }
    EXPECT_EQ(BytesOf(list), bytes);
    fs::remove(songs[0]);
    Run(form.pStartOver, {}, false);
    EXPECT_TRUE(mExit) << "led back, since one song is missing";
}

} // namespace
