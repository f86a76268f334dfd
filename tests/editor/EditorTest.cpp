#include "editor/Filling.h"
#include "editor/c_Editor.h"
#include "library/SongFolders.h"
#include "library/c_ID3.h"
#include "library/c_M3U.h"
#include "platform/Aside.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "tests/Quit.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"

#include <QApplication>
#include <QCheckBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <deque>
#include <optional>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

using Steps = std::deque<std::function<void()>>;

class EditorTest : public testing::Test {
protected:
    /// Runs the editor, does one step after the other, answers file dialogs with `mChosen` (nothing
    /// cancels) and leaves by the menu button, without saving.
    QStringList Run(Steps steps) {
        Robot robot([&] {
            if (AnswerFileDialog(mChosen) || !editor->Form().isVisible() || Works())
                return;
            if (steps.empty()) {
                mSaveQuestions = robot.mSaveQuestions;
                robot.mSaving = QStringLiteral("Don't save");
                return ClickOn(editor->Form().pMenu);
            }
            const auto step = steps.front();
            steps.pop_front();
            step();
        });
        robot.mSaving = mSaving;
        editor->Run();
        EXPECT_TRUE(steps.empty()) << "left too early";
        if (robot.mSaving == mSaving)
            mSaveQuestions = robot.mSaveQuestions;
        mFrames = robot.Frames();
        return robot.Messages();
    }

    /// Whether it does something that the next step has to wait for.
    bool Works() const {
        const f_Edit& dialog = editor->TitleDialog();
        if (dialog.isVisible())
            return dialog.tFileName->isReadOnly() || !dialog.isEnabled();
        return !editor->Form().isEnabled() || editor->Player().Loading() ||
               (editor->Reading() && !mMeanwhile);
    }

    std::function<void()> Press(toolkit::PictureBox* button, const QString& chosen = {}) {
        return [this, button, chosen] {
            mChosen = chosen;
            ClickOn(button);
        };
    }

    std::function<void()> Add(const char* folder = "Music") {
        return Press(editor->Form().pAddDir, PathText(folder));
    }

    std::function<void()> Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        return [=, this] { QTest::keyClick(editor->Form().pList, key, modifiers); };
    }

    /// On the header's first column.
    std::function<void()> ClickHeader() {
        const QPoint header(20, 8);
        return [=, this] { QTest::mouseClick(editor->Form().pList, Qt::LeftButton, {}, header); };
    }

    QString PathText(const char* name) const {
        return QString::fromStdString((mFolder.Path() / name).string());
    }

    /// The first column of all lines.
    QString Names() const {
        QStringList names;
        for (int line = 0; line < editor->List().LineCount(); ++line)
            names << editor->List().LineText(line).section(u'\\', 0, 0);
        return names.join(u' ');
    }

    QString ShownLine(int line) const {
        const c_PicList& list = editor->List();
        return list.CellText(line, 0) + u'\\' + list.CellText(line, 1) + u'\\' +
               list.CellText(line, 2);
    }

    std::optional<platform::QuitWatch> mQuitWatch{std::in_place};
    SongFolder mFolder;
    std::unique_ptr<c_Editor> editor = std::make_unique<c_Editor>();
    QString mSaving = "Don't save";
    int mSaveQuestions = 0; // before it was left by the menu button
    QString mChosen;
    bool mMeanwhile = false; // the next step does not wait until all is read
    QStringList mFrames;     // of the messages
};

TEST_F(EditorTest, AFolderIsListedAndSortedUpAndDownByItsHeaderAndASongIsHeard) {
    mFolder.MakeSongs(11);
    QStringList seen;
    const auto look = [&] { seen << Names(); };
    const auto hear = [&] { seen << SongFolder::OpenTitle(); };
    Run({Add(), ClickHeader(), look, ClickHeader(), look, Key(Qt::Key_End), Key(Qt::Key_Space),
         hear, Press(editor->Player().Form().pNext), hear, Press(editor->Player().Form().pPrev),
         hear});
    EXPECT_EQ(seen[0], "song1 song2 song3 song4 song5 song6 song7 song8 song9 song10 song11");
    EXPECT_EQ(seen[1], "song11 song10 song9 song8 song7 song6 song5 song4 song3 song2 song1");
    EXPECT_EQ(seen.mid(2).join(' '), "Title 1 Title 1 Title 2") << "the last one has no next";
    EXPECT_EQ(editor->List().LineText(1), "song10\\Title 10\\");
    EXPECT_FALSE(editor->ExitProgram);
}

TEST_F(EditorTest, MarkedAndSelectedLinesAreRemovedAlsoAfterSorting) {
    mFolder.MakeSongs(9);
    const auto down = Key(Qt::Key_Down);
    const auto range = Key(Qt::Key_Down, Qt::ShiftModifier);
    const auto to = [this](Qt::Key key) { return Key(key, Qt::ControlModifier); };
    const auto toggle = Key(Qt::Key_Space, Qt::ControlModifier);
    // Marks 2 to 4, then 9 and 8, but 8 not after all; upside down they must be on the same songs.
    Run({Add(), ClickHeader(), Key(Qt::Key_Home), down, range, range, to(Qt::Key_End), toggle,
         to(Qt::Key_Up), toggle, toggle, ClickHeader(), Key(Qt::Key_Delete)});
    EXPECT_EQ(Names(), "song8 song7 song6 song5 song1");
    Run({Key(Qt::Key_Home), down, Press(editor->Form().pRemove)});
    EXPECT_EQ(Names(), "song8 song6 song5 song1") << "without marks only the selected line";
    Run({Key(Qt::Key_Home), to(Qt::Key_End), toggle, Key(Qt::Key_Delete)});
    EXPECT_EQ(Names(), "song6 song5") << "the first mark is that of the line selected before";
    Run({Key(Qt::Key_Home), to(Qt::Key_End), toggle, to(Qt::Key_Home), toggle,
         Key(Qt::Key_Delete)});
    EXPECT_EQ(Names(), "song6") << "what lost its mark stays";
    Run({Key(Qt::Key_A, Qt::ControlModifier), Press(editor->Form().pRemove)});
    EXPECT_EQ(Names(), "");
    Run({Add(), ClickHeader(), Key(Qt::Key_A, Qt::ControlModifier), Key(Qt::Key_Home),
         Key(Qt::Key_Delete)});
    EXPECT_EQ(editor->List().LineCount(), 8) << "a plain selection takes all marks away";
}

TEST_F(EditorTest, SongsWithoutTitlesAreWarnedAboutAndSavedAndLoadedAgain) {
    c_ID3().PutIdTag(mFolder.MakeSongs(12)[4]);
    const QString list = PathText("PlayList/list1.M3U");
    std::ofstream(mFolder.Path() / "PlayList" / "empty.m3u") << "#EXTM3U\r\n";
    QString before;
    const QStringList told =
        Run({Add(), [&] { before = Names(); }, Press(editor->Form().pSave, list),
             Key(Qt::Key_A, Qt::ControlModifier), Key(Qt::Key_Delete),
             Press(editor->Form().pLoad, list),
             Press(editor->Form().pLoad, PathText("PlayList/empty.m3u")),
             Press(editor->Form().pLoad, PathText("Music/song1.mp3"))});
    ASSERT_EQ(told.size(), 3);
    EXPECT_TRUE(told[0].startsWith("Warning, This playlist contains MP3s"));
    EXPECT_EQ(told[1], "empty.m3u has no songs.");
    EXPECT_EQ(told[2], "song1.mp3 is not a playlist.");
    EXPECT_EQ(mFrames[0], "Songrush, Warning, OK");
    EXPECT_EQ(Names(), before) << "a list without songs leaves the old one";
}

TEST_F(EditorTest, AnEditedSongIsShownAsItIsOnDiskInAllItsLines) {
    const fs::path song = mFolder.MakeSongs(2)[0];
    const fs::path odd = song.parent_path() / "what?.mp3";
    fs::rename(song, odd);
    f_Edit& dialog = editor->TitleDialog();
    const auto type = [&dialog](QLineEdit* box, const QString& text) {
        return [&dialog, box, text] {
            box->setText(text);
            ClickOn(dialog.cmdApply);
        };
    };
    const QStringList told =
        Run({Add(), Add(), ClickHeader(), ClickHeader(), Key(Qt::Key_Home), Key(Qt::Key_Return),
             type(dialog.tSongTitle, "Schön"), Key(Qt::Key_Return),
             type(dialog.tArtist, "Я, a band whose name fills a tag"), Key(Qt::Key_Return),
             type(dialog.tFileName, "song2")});
    EXPECT_EQ(told.size(), 2);
    const QString after = "what?\\Schön\\?, a band whose name fills a t";
    for (int line = 0; line < 2; ++line)
        EXPECT_EQ(ShownLine(line), after);
}

TEST_F(EditorTest, MarkedSongsAreEditedOneAfterTheOtherOrGetTheSameArtist) {
    mFolder.MakeSongs(3);
    f_Edit& dialog = editor->TitleDialog();
    const auto fill = [&dialog](const QString& title, QPushButton* button, bool all = false) {
        return [&dialog, title, button, all] {
            dialog.tSongTitle->setText(title);
            dialog.tArtist->setText("Band");
            dialog.cAll->setChecked(all);
            ClickOn(button);
        };
    };
    QString undo;
    Run({Add(), ClickHeader(), Key(Qt::Key_A, Qt::ControlModifier), Key(Qt::Key_Home),
         Key(Qt::Key_A, Qt::ControlModifier), Key(Qt::Key_F2), fill("One", dialog.cmdNext),
         fill("Two", dialog.cmdApply), Key(Qt::Key_F2), fill("First", dialog.cmdNext, true),
         [&dialog] { ClickOn(dialog.cmdCancel); }, [&] { undo = editor->Songs().UndoName(); },
         [this] {
             EXPECT_EQ(ShownLine(0) + ' ' + ShownLine(1) + ' ' + ShownLine(2),
                       "song1\\First\\Band song2\\Two\\Band song3\\Title 3\\Band");
         },
         Key(Qt::Key_Z, Qt::ControlModifier)});
    EXPECT_EQ(undo, "Edit 2 songs");
    EXPECT_EQ(ShownLine(0) + ' ' + ShownLine(2), "song1\\One\\Band song3\\Title 3\\");
}

TEST_F(EditorTest, DroppedFilesAreAddedFoundAndHaveAMenu) {
    mFolder.MakeSongs(3);
    mFolder.MakePlaylist(mFolder.MakeSongs(2, "Other"), "other.m3u");
    const auto drop = [this](const QStringList& names) {
        return [this, names] {
            QMimeData data;
            QList<QUrl> urls;
            for (const QString& name : names)
                urls << QUrl::fromLocalFile(PathText(name.toStdString().c_str()));
            data.setUrls(urls);
            QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(&editor->Form(), &enter);
            QDropEvent event(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(&editor->Form(), &event);
        };
    };
    const auto type = [this](const QString& text) {
        return [this, text] { QTest::keyClicks(editor->Form().tFind, text); };
    };
    const auto enter = [this](Qt::KeyboardModifiers with = {}) {
        return [this, with] { QTest::keyClick(editor->Form().tFind, Qt::Key_Return, with); };
    };
    QList<int> found;
    const auto look = [&] { found << editor->List().LineSelectedNum(); };
    QStringList menu;
    const auto choose = [&] {
        auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(open, nullptr);
        for (const QAction* action : open->actions())
            menu << (action->isEnabled() ? "" : "-") + action->text().section(u'\t', 0, 0);
        QTest::keyClick(open, Qt::Key_Up);
        QTest::keyClick(open, Qt::Key_Return);
    };
    Run({drop({"PlayList/other.m3u"}),
         drop({"Music", "PlayList/other.m3u", "Images/X.bmp"}),
         ClickHeader(),
         ClickHeader(),
         Key(Qt::Key_Home),
         Key(Qt::Key_F, Qt::ControlModifier),
         type("TITLE 2"),
         look,
         enter(),
         look,
         enter(),
         look,
         enter(Qt::ShiftModifier),
         look,
         type("2"),
         look,
         Key(Qt::Key_Escape),
         Key(Qt::Key_Delete),
         Key(Qt::Key_F10, Qt::ShiftModifier),
         choose});
    EXPECT_EQ(found, QList<int>({1, 2, 3, 2, 2}));
    EXPECT_EQ(menu.join(u' '), "Play Edit Remove Show in folder -Find missing  "
                               "Undo Remove 1 song -Redo");
    EXPECT_EQ(Names(), "song3 song2 song2 song2 song1 song1 song1") << "undone by the menu";
}

TEST_F(EditorTest, ATitleOfANewerTagIsShownAndWrittenByApplyAndWithAnArtistForAll) {
    mFolder.MakeSongs(1);
    const std::string title = "Newer title";
    std::string tag = {'I', 'D', '3', 3, 0, 0, 0, 0, 0, static_cast<char>(11 + title.size())};
    tag += std::string("TIT2\0\0\0", 7) + static_cast<char>(title.size() + 1) +
           std::string(3, '\0') + title;
    const fs::path song = mFolder.Path() / "Music" / "new.mp3";
    const std::string bytes = tag + std::string(300, '\0');
    std::ofstream(song, std::ios::binary) << bytes;
    f_Edit& dialog = editor->TitleDialog();
    QStringList seen;
    const auto look = [&] {
        const editor::SongFacts facts = editor::FactsOf(song);
        seen << ShownLine(1) + (editor->Songs().IsNewer(editor->List().LineKey(1)) ? "*" : "") +
                    " - " + facts.title + '\\' + facts.artist;
    };
    Run({Add(), ClickHeader(), ClickHeader(), look, Key(Qt::Key_End), Key(Qt::Key_Return),
         [&] { ClickOn(dialog.cmdApply); }, look, Key(Qt::Key_Z, Qt::ControlModifier),
         [&] { EXPECT_EQ(BytesOf(song), bytes); }, look, Key(Qt::Key_Home),
         Key(Qt::Key_A, Qt::ControlModifier), Key(Qt::Key_F2),
         [&] {
             dialog.tFileName->setText("renamed");
             ClickOn(dialog.cmdNext);
         },
         [&] {
             dialog.tArtist->setText("Band");
             dialog.cAll->setChecked(true);
             ClickOn(dialog.cmdApply);
         },
         look});
    const QString line = "new\\Newer title\\";
    EXPECT_EQ(seen, QStringList({line + "* - \\", line + " - Newer title\\", line + "* - \\",
                                 line + "Band - Newer title\\Band"}));
    EXPECT_EQ(ShownLine(0), "renamed\\Title 1\\Band");
}

TEST_F(EditorTest, AnUnsavedListIsAskedAboutBeforeItGoesAndNoOther) {
    mFolder.MakeSongs(2);
    f_Editor& form = editor->Form();
    const QString file = PathText("PlayList/mine.m3u");
    const auto ctrl = [this](Qt::Key key) { return Key(key, Qt::ControlModifier); };
    QStringList titles;
    const auto look = [&] { titles << form.windowTitle().section(" - ", 0, 0); };
    mSaving = "Cancel";
    Run({look, Press(form.pX)});
    EXPECT_EQ(mSaveQuestions, 0);
    Run({Add(), look, Press(form.pMenu), Press(form.pX), Key(Qt::Key_Escape), Press(form.pLoad),
         ctrl(Qt::Key_O), look});
    EXPECT_EQ(mSaveQuestions, 5);
    mSaving = "Save";
    Run({Press(form.pX), look, Press(form.pX, file)});
    EXPECT_EQ(mSaveQuestions, 2) << "the dialog was cancelled, then it was left";
    EXPECT_TRUE(editor->ExitProgram);
    Run({look, ctrl(Qt::Key_A), Key(Qt::Key_Delete), Press(form.pLoad, file), look,
         Key(Qt::Key_Home), Key(Qt::Key_Delete), look, ctrl(Qt::Key_Z), look, ctrl(Qt::Key_Y),
         ctrl(Qt::Key_S), look, Press(form.pX)});
    EXPECT_EQ(mSaveQuestions, 0);
    EXPECT_EQ(titles, QStringList({"Mp3 Editor", "New list, not saved", "New list, not saved",
                                   "New list, not saved", "mine", "mine", "mine, not saved", "mine",
                                   "mine"}));
    c_M3U saved;
    saved.ReadFile(file.toStdString());
    EXPECT_EQ(saved.Count(), 1);
    const std::string others = "#EXTM3U\r\n/others/song.mp3\r\n";
    const QStringList told = Run({Press(form.pLoad, file), Add(),
                                  [&] {
                                      mChosen.clear();
                                      std::ofstream(file.toStdString()) << others;
                                  },
                                  ctrl(Qt::Key_S)});
    EXPECT_EQ(told, QStringList("Another program has changed the file of the list \"mine\"."));
    EXPECT_EQ(BytesOf(file.toStdString()), others);
}

TEST_F(EditorTest, WhatWasEditedWhenTheProgramEndedIsOfferedAgain) {
    mFolder.MakeSongs(3);
    const fs::path copy = mFolder.Path() / ".unsaved.m3u";
    const QString file = PathText("PlayList/mine.m3u");
    const auto quitAndStart = [this] {
        Run({Key(Qt::Key_Home), Key(Qt::Key_Delete), [] { platform::RequestQuit(); }});
        EXPECT_EQ(mSaveQuestions, 0);
        ForgetQuit();
        mQuitWatch.emplace();
        editor = std::make_unique<c_Editor>();
        EXPECT_TRUE(platform::AsidesEnd(20s));
    };
    const auto offered = [this] { return QTest::qWaitFor([&] { return !Names().isEmpty(); }); };
    Run({Add(), Press(editor->Form().pSave, file)});
    EXPECT_FALSE(fs::exists(copy));
    quitAndStart();
    EXPECT_TRUE(fs::exists(copy));
    EXPECT_EQ(
        Run({[&] { EXPECT_TRUE(offered()); },
             [&] { EXPECT_EQ(editor->Form().windowTitle(), "mine, not saved - Mp3 Editor"); }}),
        QStringList("The list \"mine\" was not saved when the program ended.\n"
                    "Do you want to go on with it?"));
    EXPECT_EQ(editor->List().LineCount(), 2);
    editor = std::make_unique<c_Editor>();
    EXPECT_TRUE(platform::AsidesEnd(20s));
    EXPECT_FALSE(fs::exists(copy)) << "it was left with Don't save";
}

TEST_F(EditorTest, AnEmptyListIsToldAndCancelledDialogsDoNothing) {
    f_Editor& form = editor->Form();
    library::SetLastMp3Folder(mFolder.Path());
    EXPECT_EQ(Run({Press(form.pEdit), Press(form.pPlay), Press(form.pSave), Press(form.pRemove),
                   Press(form.pLoad), Press(form.pAddFile), Press(form.pAddDir)}),
              QStringList({"No songs in list", "No songs in list", "Nothing to save."}));
    EXPECT_EQ(mFrames, QStringList(3, "Mp3 Editor, Information, OK"));
    EXPECT_EQ(library::LastMp3Folder(), mFolder.Path());
}

TEST_F(EditorTest, AnyNameSurvivesListAndPlaylistAlsoOfSeveralFilesAtOnce) {
    std::vector<fs::path> songs = mFolder.MakeSongs(4);
    const char* names[] = {"why?.mp3", "back\\slash.mp3", "#\"quoted\".mp3", "bad\xFF.mp3"};
    for (std::size_t i = 0; i < songs.size(); ++i) {
        const fs::path made = songs[i];
        fs::rename(made, songs[i].replace_filename(names[i]));
    }
    const QString list = PathText("PlayList/odd.m3u");
    Run({Add(), Press(editor->Form().pAddFile, "\"back\\slash.mp3\" \"why?.mp3\""),
         Press(editor->Form().pAddFile, "why?.mp3"), Press(editor->Form().pSave, list),
         Press(editor->Form().pLoad, list)});
    songs.insert(songs.end(), {songs[0], songs[0], songs[1]});
    std::vector<fs::path> keys;
    for (int line = 0; line < editor->List().LineCount(); ++line)
        keys.push_back(platform::PathFromKey(editor->List().LineKey(line)));
    std::sort(keys.begin(), keys.end());
    std::sort(songs.begin(), songs.end());
    EXPECT_EQ(keys, songs);
    EXPECT_EQ(editor->List().LineText(0).count(u'\\'), 2) << "three columns";
}

TEST_F(EditorTest, EscapeFirstStopsAScanAndThenLeaves) {
    fs::create_directory(mFolder.Path() / "many");
    for (int i = 0; i < 20000; ++i)
        std::ofstream(mFolder.Path() / "many" / (std::to_string(i) + ".mp3"));
    mMeanwhile = true;
    const auto begun = [this] {
        EXPECT_TRUE(QTest::qWaitFor([this] { return editor->List().LineCount() > 0; }));
    };
    const auto escape = [this] { QTest::keyClick(editor->Form().pList, Qt::Key_Escape); };
    Run({Add("many"), begun, escape, [&] { EXPECT_FALSE(editor->Reading()); }, escape});
    EXPECT_TRUE(editor->ExitProgram);
    EXPECT_GT(editor->List().LineCount(), 0);
    EXPECT_LT(editor->List().LineCount(), 20000);
}

TEST(FillingTest, WhatIsAskedForMeanwhileComesInItsTurnUntilAllIsStopped) {
    const TemporaryFolder folder;
    for (const char* name : {"one", "two"})
        for (int song = 0; song < 20; ++song)
            folder.Write(fs::path(name) / (std::to_string(song) + ".mp3"), "");
    const std::vector<fs::path> gone(30, folder.Path() / "list" / "song.mp3");
    QStringList seen;
    editor::Filling filling([] {});
    const auto add = [&](const QString& name, editor::Reading reading) {
        filling.Do({name, std::move(reading),
                    [&seen, name](const auto& news) {
                        for (const editor::Line& line : news.lines)
                            seen << name + (line.missing ? " missing" : "");
                    },
                    [&seen](const auto& news) { seen << news.failure; }});
    };
    const auto done = [&] { return QTest::qWaitFor([&] { return !filling.Busy(); }); };
    add("one", editor::ReadFolder(folder.Path() / "one"));
    add("files", editor::ReadFiles(gone));
    add("list", editor::ReadPlaylist(folder.Path() / "none.m3u"));
    ASSERT_TRUE(done());
    EXPECT_EQ(seen.count("one"), 20);
    EXPECT_EQ(seen.indexOf("files missing"), 21);
    EXPECT_EQ(seen.count("files missing"), 30);
    EXPECT_TRUE(seen.back().startsWith("none.m3u cannot be read"));
    EXPECT_EQ(folder.Entries(), 2) << "a list was made by looking for it";
    seen.clear();
    add("two", editor::ReadFolder(folder.Path() / "two"));
    filling.Stop();
    ASSERT_TRUE(done());
    QTest::qWait(50);
    EXPECT_EQ(seen, QStringList());
}

} // namespace
