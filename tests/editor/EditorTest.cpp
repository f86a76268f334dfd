#include "editor/c_Editor.h"
#include "library/SongFolders.h"
#include "library/c_ID3.h"
#include "platform/Aside.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "tests/HeldReads.h"
#include "tests/Looks.h"
#include "tests/Quit.h"
#include "tests/Robot.h"
#include "tests/SongFolder.h"
#include "toolkit/Place.h"

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
#include <optional>
#include <tuple>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

using Steps = QList<std::function<void()>>;

class EditorTest : public testing::Test {
protected:
    EditorTest() {
        PrepareLooks();
        Start();
    }

    void Start() { editor = std::make_unique<c_Editor>(); }

    /// Runs the editor, does one step after the other, answers file dialogs with `mChosen` (nothing
    /// cancels) and leaves by the menu button, without saving.
    QStringList Run(Steps steps) {
        Robot robot([&] {
            if (AnswerFileDialog(mChosen) || !editor->Form().isVisible() || Works())
                return;
            if (!steps.isEmpty())
                return steps.takeFirst()();
            mSaveQuestions = robot.mSaveQuestions;
            robot.mSaving = QStringLiteral("Don't save");
            ClickOn(editor->Form().pMenu);
        });
        robot.mSaving = mSaving;
        editor->Run();
        EXPECT_TRUE(steps.isEmpty()) << "left too early";
        if (robot.mSaving == mSaving)
            mSaveQuestions = robot.mSaveQuestions;
        mFrames = robot.Frames();
        return robot.Messages();
    }

    /// Whether the editor is busy with something that the next step must wait for.
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

    /// A step that presses keys on the list, one after the other, as in "Home Shift+Down".
    std::function<void()> Keys(const QString& keys) {
        return [=, this] {
            for (const QString& name : keys.split(u' ')) {
                const QKeyCombination key = QKeySequence(name)[0];
                QTest::keyClick(editor->Form().pList, key.key(), key.keyboardModifiers());
            }
        };
    }

    /// A step that clicks the first column of a line; the header is line -1.
    std::function<void()> Click(int line, Qt::KeyboardModifiers with = {}) {
        return [=, this] {
            const QPoint at = toolkit::FromLogical(editor->List().CellRect(line, 0)).center();
            QTest::mouseClick(editor->Form().pList, Qt::LeftButton, with, at);
        };
    }

    /// A step that types into one of the dialog's boxes and presses a button.
    std::function<void()> Type(QLineEdit* box, const QString& text, QPushButton* button) {
        return [=] {
            box->setText(text);
            ClickOn(button);
        };
    }

    /// A step that chooses from the open menu what begins like that.
    std::function<void()> Choose(const QString& name) {
        return [=, this] {
            auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(open, nullptr);
            EXPECT_NE(open->activeAction(), nullptr) << "opened by a key";
            for (QAction* action : open->actions()) {
                mMenu << (action->isEnabled() ? "" : "-") + action->text().section(u'\t', 0, 0);
                if (action->text().startsWith(name))
                    open->setActiveAction(action);
            }
            QTest::keyClick(open, Qt::Key_Return);
        };
    }

    /// A step that looks at the editor once its list is drawn.
    std::function<void()> Look(const char* name) {
        return [=, this] {
            QTest::qWait(100);
            ExpectLook(editor->Form(), name);
        };
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
    std::unique_ptr<c_Editor> editor;
    QString mSaving = "Don't save";
    int mSaveQuestions = 0; // apart from the one on leaving
    QString mChosen;
    bool mMeanwhile = false; // the next step does not wait until all is read
    QStringList mFrames;     // of the messages
    QStringList mMenu;       // that was open last; what cannot be chosen has a "-"
};

TEST_F(EditorTest, AFolderIsListedAndSortedUpAndDownByItsHeaderAndASongIsHeard) {
    mFolder.MakeSongs(11);
    QStringList seen;
    const auto look = [&] { seen << Names(); };
    f_Player& player = editor->Player().Form();
    const auto hear = [&] { seen << SongFolder::OpenTitle(); };
    Run({Add(), Click(-1), look, Click(-1), look, Look("editor"), Keys("End Space"), hear,
         Press(player.pPlay), Press(player.pNext), hear, Press(player.pPrev),
         [&] { EXPECT_TRUE(editor->Player().InUse()); }, hear});
    EXPECT_EQ(seen[0], "song1 song2 song3 song4 song5 song6 song7 song8 song9 song10 song11");
    EXPECT_EQ(seen[1], "song11 song10 song9 song8 song7 song6 song5 song4 song3 song2 song1");
    EXPECT_EQ(seen.mid(2).join(' '), "Title 1 Title 1 Title 2") << "the last one has no next";
    EXPECT_FALSE(editor->ExitProgram);
}

TEST_F(EditorTest, MarkedAndSelectedLinesAreRemovedAlsoAfterSorting) {
    mFolder.MakeSongs(9);
    // Marks 2 to 4, then 9 and 8, but 8 not after all; upside down they must be on the same songs.
    Run({Add(), Click(-1),
         Keys("Home Down Shift+Down Shift+Down Ctrl+End Ctrl+Space Ctrl+Up Ctrl+Space Ctrl+Space"),
         Click(-1), Look("editor-marks"), Press(editor->Form().pRemove)});
    EXPECT_EQ(Names(), "song8 song7 song6 song5 song1");
    // What is marked, how, and what is left of the songs 1 to 9 when it is removed.
    const std::tuple<const char*, Steps, QString> cases[] = {
        {"the selected line", {Click(1)}, "13456789"},
        {"to the line selected before", {Click(6), Click(3, Qt::ShiftModifier)}, "12389"},
        {"with the line selected before", {Click(1), Click(8, Qt::ControlModifier)}, "1345678"},
        {"not what lost its mark",
         {Keys("Home Ctrl+End Ctrl+Space Ctrl+Home Ctrl+Space")},
         "12345678"},
        {"one line after a plain selection", {Keys("Ctrl+A Home")}, "23456789"},
        {"all", {Keys("Ctrl+A")}, ""},
    };
    Run({Keys("Ctrl+A Delete"), Add(), Click(-1)});
    for (const auto& [what, marking, left] : cases) {
        Run(marking + Steps{Keys("Delete")});
        EXPECT_EQ(Names().remove("song").remove(u' '), left) << what;
        Run({Keys("Ctrl+Z")});
    }
}

TEST_F(EditorTest, MarkedSongsAreEditedOneByOneOrGetOneArtistAndAllIsTakenBack) {
    mFolder.MakeSongs(2);
    const fs::path song = mFolder.Path() / "Music" / "new.mp3"; // with a newer tag
    const std::string bytes = std::string("ID3\3\0\0\0\0\0\26TIT2\0\0\0\14\0\0\0", 21) +
                              "Newer title" + std::string(300, '\0');
    std::ofstream(song, std::ios::binary) << bytes;
    f_Edit& dialog = editor->TitleDialog();
    const auto forAll = [&] { dialog.tArtist->setText("Band"), dialog.cAll->setChecked(true); };
    QStringList seen;
    const auto look = [&] {
        const QString step = editor->Songs().UndoName();
        seen << ShownLine(0) + (editor->Songs().IsNewer(editor->List().LineKey(0)) ? "* " : " ") +
                    ShownLine(1) + ' ' + ShownLine(2) + (step.startsWith("Edit") ? step : "");
    };
    Run({Add(), Click(-1), Keys("Ctrl+A Home Ctrl+A F2"), [&] { ClickOn(dialog.cmdNext); },
         Type(dialog.tSongTitle, "Two", dialog.cmdApply), look, Keys("F2"),
         Type(dialog.tFileName, "renamed", dialog.cmdNext), forAll,
         Type(dialog.tSongTitle, "First", dialog.cmdNext), [&] { ClickOn(dialog.cmdCancel); }, look,
         Keys("Ctrl+Z"), look, Keys("Ctrl+Z"), Keys("Ctrl+Z"), Keys("Ctrl+Z"), look});
    EXPECT_EQ(seen, QStringList({"new\\Newer title\\ song1\\Two\\ song2\\Title 2\\Edit song1.mp3",
                                 "renamed\\Newer title\\Band song1\\First\\Band "
                                 "song2\\Title 2\\BandEdit 3 songs",
                                 "renamed\\Newer title\\ song1\\Two\\ song2\\Title 2\\Edit new.mp3",
                                 "new\\Newer title\\* song1\\Title 1\\ song2\\Title 2\\"}));
    EXPECT_EQ(BytesOf(song), bytes);
    mFolder.MakeSongs(1, "Music/renamed.mp3");
    const QString problem = "It keeps its name: another file is called \"renamed.mp3\".";
    EXPECT_EQ(Run({Keys("Ctrl+Y"), Keys("Ctrl+Y"), Keys("Ctrl+Y")}),
              QStringList("new.mp3:\n" + problem));
    EXPECT_EQ(editor->Songs().UndoName(), "Edit song1.mp3");
}

TEST_F(EditorTest, EveryStepIsTakenBackAndAgainAsOftenAsOneLikes) {
    mFolder.MakeSongs(4);
    library::SetLastMp3Folder(mFolder.Path() / "Music");
    toolkit::PictureBox* add = editor->Form().pAddFile;
    QStringList seen;
    const auto look = [&] { seen << Names().remove("song") + editor->Songs().UndoName(); };
    const QStringList states = {"",
                                "2 1Add 2 songs",
                                "2 1 3Add 1 song",
                                "1 2 3Sort by File Name",
                                "3Remove 2 songs",
                                "3 4Add 1 song"};
    Steps steps = {Keys("Ctrl+Z Ctrl+Y"),          Press(add, "\"song2.mp3\" \"song1.mp3\""),
                   Press(add, "song3.mp3"),        Click(-1),
                   Keys("Home Shift+Down Delete"), Press(add, "song4.mp3")};
    QStringList expected;
    for (int round = 0; round < 2; ++round) {
        for (qsizetype i = states.size() - 1; i > 0; --i, expected << states[i])
            steps << Keys("Ctrl+Z") << look;
        for (qsizetype i = 1; i < states.size(); ++i, expected << states[i - 1])
            steps << Keys("Ctrl+Y") << look;
    }
    Run(steps << Keys("Ctrl+Z") << Keys("Home Delete"));
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(editor->Songs().RedoName(), "") << "what was undone is over";
}

TEST_F(EditorTest, SortingWhileSongsAreReadIsAStepOfItsOwn) {
    mFolder.MakeSongs(3);
    library::SetLastMp3Folder(mFolder.Path() / "Music");
    HeldReads held("song3.mp3");
    mMeanwhile = true;
    const auto has = [&](int lines) {
        return [=, this] {
            const c_PicList& list = editor->List();
            EXPECT_TRUE(QTest::qWaitFor([&] { return list.LineCount() == lines; }));
        };
    };
    Run({Press(editor->Form().pAddFile, "\"song2.mp3\" \"song1.mp3\" \"song3.mp3\""), has(2),
         Click(-1), [&] { held.LetGo(); }, has(3)});
    EXPECT_EQ(editor->Songs().UndoName(), "Add 1 song");
}

TEST_F(EditorTest, VeryManyLinesAreSortedBesideWhatElseIsDone) {
    std::vector<fs::path> songs;
    for (int i = 5002; i > 0; --i)
        songs.push_back(std::to_string(i) + ".mp3");
    mFolder.MakePlaylist(songs);
    const auto isFirst = [&](const char* name) { return editor->List().CellText(0, 0) == name; };
    const auto sorted = [&] { EXPECT_TRUE(QTest::qWaitFor([&] { return isFirst("1"); })); };
    const auto sort = [&] {
        Click(-1)();
        EXPECT_TRUE(isFirst("5002")) << "held up";
    };
    const auto removeMeanwhile = [&] { sort(), sort(), Keys("Home Delete")(); };
    Run({Press(editor->Form().pLoad, PathText("PlayList/Test.m3u")), sort, sorted, Keys("Ctrl+Z"),
         removeMeanwhile, sorted});
    EXPECT_EQ(editor->List().CellText(5000, 0), "5001");
}

TEST_F(EditorTest, MissingSongsAreReplacedByThoseFoundByTheirNames) {
    mFolder.MakeSongs(1, "deep/er");
    const fs::path gone = mFolder.Path() / "gone";
    mFolder.MakePlaylist({gone / "SONG1.mp3", gone / "lost.mp3", gone / "SONG1.mp3"});
    QStringList seen;
    const auto look = [&] {
        seen << Names() + QStringLiteral(" %1 missing").arg(editor->Songs().Missing().size());
    };
    const auto folder = [this] { mChosen = PathText("deep"); };
    EXPECT_EQ(Run({Press(editor->Form().pLoad, PathText("PlayList/Test.m3u")), look, folder,
                   Keys("Home Shift+F10"), Choose("Find missing"), look, Keys("Ctrl+Z"), look}),
              QStringList("1 of 2 missing songs were found."));
    EXPECT_EQ(seen,
              QStringList({"SONG1 lost SONG1 2 missing", "song1 lost song1 1 missing", seen[0]}));
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
    QList<int> found;
    const auto find = [&](const QString& text, Qt::KeyboardModifiers with = {}) {
        return [&, text, with] {
            QTest::keyClicks(editor->Form().tFind, text);
            if (text.isEmpty())
                QTest::keyClick(editor->Form().tFind, Qt::Key_Return, with);
            found << editor->List().LineSelectedNum();
        };
    };
    const auto lists = drop({"PlayList/other.m3u"});
    const auto more = drop({"Music", "PlayList/other.m3u", "Images/X.bmp"});
    const auto both = [&] { lists(), more(); }; // which comes in its turn
    const QStringList told =
        Run({drop({"none.m3u"}), both, Click(-1), Click(-1), Keys("Home Ctrl+F"), find("TITLE 2"),
             find(""), find(""), find("", Qt::ShiftModifier), find("2"),
             Keys("Escape Delete Shift+F10"), Choose("Undo")});
    EXPECT_TRUE(told.join(u'|').startsWith("none.m3u cannot be read")) << told.size();
    EXPECT_FALSE(fs::exists(mFolder.Path() / "none.m3u"));
    EXPECT_EQ(found, QList<int>({1, 2, 3, 2, 2}));
    EXPECT_EQ(mMenu.join(u' '), "Play Edit Remove Show in folder -Find missing  "
                                "Undo Remove 1 song -Redo");
    EXPECT_EQ(Names(), "song3 song2 song2 song2 song1 song1 song1") << "undone by the menu";
}

TEST_F(EditorTest, AnUnsavedListIsAskedAboutBeforeItGoesAndNoOther) {
    mFolder.MakeSongs(2);
    f_Editor& form = editor->Form();
    const QString file = PathText("PlayList/mine.m3u");
    QStringList titles;
    const auto look = [&] { titles << form.windowTitle().section(" - ", 0, 0); };
    mSaving = "Cancel";
    Run({look, Add(), look, Press(form.pMenu), Press(form.pX), Keys("Escape"), Press(form.pLoad),
         Keys("Ctrl+O"), look});
    EXPECT_EQ(mSaveQuestions, 5);
    mSaving = "Save";
    Run({Press(form.pX), look, Press(form.pX, file)});
    EXPECT_EQ(mSaveQuestions, 2) << "the dialog was cancelled, then it was left";
    EXPECT_TRUE(editor->ExitProgram);
    Run({look, Keys("Ctrl+A Delete"), Press(form.pLoad, file), look, Keys("Home Delete"), look,
         Keys("Ctrl+Z"), look, Keys("Ctrl+Y Ctrl+S"), look, Press(form.pX)});
    EXPECT_EQ(mSaveQuestions, 0);
    EXPECT_EQ(titles, QStringList({"Mp3 Editor", "New list, not saved", "New list, not saved",
                                   "New list, not saved", "mine", "mine", "mine, not saved", "mine",
                                   "mine"}));
    const std::string others = "#EXTM3U\n/others/1.mp3\n/others/2.mp3\n";
    const QStringList told = Run({Press(form.pLoad, file), Add(),
                                  [&] {
                                      mChosen.clear();
                                      std::ofstream(file.toStdString()) << others;
                                  },
                                  Keys("Ctrl+S")});
    EXPECT_EQ(editor->List().LineCount(), 1 + 2);
    EXPECT_EQ(told, QStringList("Another program has changed the file of the list \"mine\"."));
    mSaving = "Don't save";
    Run({Press(form.pLoad, file), Keys("Home Delete"), [&] { mChosen.clear(); }, Keys("Ctrl+S")});
    EXPECT_EQ(BytesOf(file.toStdString()), others);
}

TEST_F(EditorTest, WhatWasEditedWhenTheProgramEndedIsOfferedAgain) {
    mFolder.MakeSongs(3);
    const fs::path copy = mFolder.Path() / ".unsaved.m3u";
    const QString file = PathText("PlayList/mine.m3u");
    Run({Add(), Press(editor->Form().pSave, file)});
    EXPECT_FALSE(fs::exists(copy));
    Run({Keys("Home Delete"),
         [&] { EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(copy); })) << "for a crash"; },
         [] { platform::RequestQuit(); }});
    EXPECT_EQ(mSaveQuestions, 0);
    ForgetQuit();
    mQuitWatch.emplace();
    Start();
    EXPECT_EQ(
        Run({[&] { EXPECT_TRUE(QTest::qWaitFor([&] { return !Names().isEmpty(); })); },
             [&] { EXPECT_EQ(editor->Form().windowTitle(), "mine, not saved - Mp3 Editor"); }}),
        QStringList("The list \"mine\" was not saved when the program ended.\n"
                    "Do you want to go on with it?"));
    EXPECT_TRUE(mFrames.join(u'|').startsWith("Mp3 Editor, ")) << "the question";
    EXPECT_EQ(editor->List().LineCount(), 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !fs::exists(copy); })) << "left with Don't save";
}

TEST_F(EditorTest, AnEmptyListIsToldAndCancelledDialogsDoNothing) {
    f_Editor& form = editor->Form();
    library::SetLastMp3Folder(mFolder.Path());
    EXPECT_EQ(Run({Press(form.pEdit), Press(form.pPlay), Press(form.pSave), Press(form.pRemove),
                   Press(form.pLoad), Press(form.pAddFile), Press(form.pAddDir),
                   [&form] { EXPECT_TRUE(Minimises(form)); }}),
              QStringList({"No songs in list", "No songs in list", "Nothing to save."}));
    EXPECT_EQ(mFrames, QStringList(3, "Mp3 Editor, Information, OK"));
    EXPECT_EQ(library::LastMp3Folder(), mFolder.Path());
}

TEST_F(EditorTest, AnyNameSurvivesListAndPlaylistAndAnEditedSongIsShownInAllItsLines) {
    std::vector<fs::path> songs = mFolder.MakeSongs(4);
    const char* names[] = {"why?.mp3", "back\\slash.mp3", "#\"quoted\".mp3", "bad\xFF.mp3"};
    for (std::size_t i = 0; i < songs.size(); ++i) {
        const fs::path made = songs[i];
        fs::rename(made, songs[i].replace_filename(names[i]));
    }
    c_ID3().PutIdTag(songs[1]);
    f_Editor& form = editor->Form();
    f_Edit& dialog = editor->TitleDialog();
    const QString list = PathText("PlayList/odd.M3U");
    std::ofstream(mFolder.Path() / "PlayList" / "empty.m3u") << "#EXTM3U\r\n";
    const QStringList told =
        Run({Add(), Press(form.pAddFile, "\"back\\slash.mp3\" \"why?.mp3\""),
             Press(form.pAddFile, "why?.mp3"), Press(form.pSave, list), Keys("Ctrl+A Delete"),
             Press(form.pLoad, list), Press(form.pLoad, PathText("PlayList/empty.m3u")),
             Press(form.pLoad, PathText("Music/why?.mp3")), Click(-1), Click(-1),
             Keys("Home Return"), Type(dialog.tSongTitle, "Schön", dialog.cmdApply), Keys("Return"),
             Type(dialog.tFileName, "#\"quoted\"", dialog.cmdApply)});
    EXPECT_TRUE(told.value(0).startsWith("Warning, This playlist contains MP3s"));
    EXPECT_EQ(told.mid(1), QStringList({"empty.m3u has no songs.", "why?.mp3 is not a playlist.",
                                        "why?.mp3:\nIt keeps its name: another file is called "
                                        "\"#\"quoted\".mp3\"."}));
    EXPECT_EQ(mFrames,
              QStringList("Songrush, Warning, OK") + QStringList(3, "Mp3 Editor, Information, OK"));
    songs.insert(songs.end(), {songs[0], songs[0], songs[1]});
    std::vector<fs::path> keys;
    for (int line = 0; line < editor->List().LineCount(); ++line) {
        keys.push_back(platform::PathFromKey(editor->List().LineKey(line)));
        EXPECT_EQ(keys.back() == songs[0], ShownLine(line) == "why?\\Schön\\");
    }
    EXPECT_TRUE(std::ranges::is_permutation(keys, songs));
}

TEST_F(EditorTest, EscapeFirstStopsAScanAndThenLeaves) {
    mFolder.MakeSongs(2);
    HeldReads held("/Music/");
    mMeanwhile = true;
    const auto begun = [&] { EXPECT_TRUE(QTest::qWaitFor([&] { return held.Waiting() > 0; })); };
    const auto stopped = [&] {
        EXPECT_FALSE(editor->Reading());
        held.LetGo();
        EXPECT_TRUE(platform::AsidesEnd(20s));
    };
    Run({Add(), begun, Keys("Escape"), stopped, Keys("Escape")});
    EXPECT_TRUE(editor->ExitProgram);
    EXPECT_EQ(editor->List().LineCount(), 0);
}

} // namespace
