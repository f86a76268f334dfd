#include "platform/Time.h"
#include "tests/Fingers.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/Form.h"
#include "toolkit/HumanOrder.h"
#include "toolkit/Picture.h"
#include "toolkit/c_PicList.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QLocale>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <set>
#include <vector>

namespace {

using namespace toolkit;

constexpr QPoint kBoxPlace(31, 17);
constexpr QSize kBoxSize(360, 240);

TEST(HumanOrder, SortsAsPeopleExpect) {
    const std::tuple<const char*, QString, QString, bool, QLocale::Language> cases[] = {
        {"numbers by value", "b 10,b 9,11,2", "2,11,b 9,b 10", false, QLocale::C},
        {"case does not count", "b,A,a,B,", ",A,a,b,B", false, QLocale::C},
        {"accents hardly count", "Eva,Étude,Ezra,etude", "etude,Étude,Eva,Ezra", false, QLocale::C},
        {"downwards, equal ones stay", "b,A,a,B,2,10", "b,B,A,a,10,2", true, QLocale::C},
        {"in Swedish", "Åsa,Zoe,Ada", "Ada,Zoe,Åsa", false, QLocale::Swedish},
    };
    for (const auto& [rule, all, expected, downwards, locale] : cases) {
        const QStringList texts = all.split(u',');
        const auto text = [&texts](int i) { return texts[i]; };
        QStringList sorted;
        for (const int i : HumanOrder(static_cast<int>(texts.size()), text, downwards, locale))
            sorted << texts[i];
        EXPECT_EQ(sorted.join(u','), expected) << rule;
    }
}

/// Several threads share the work.
TEST(HumanOrder, SortsManyAndKeepsEqualOnesInOrder) {
    const auto number = [](int i) { return i * 7919 % 5000; };
    std::vector<int> expected(20001);
    std::iota(expected.begin(), expected.end(), 0);
    std::ranges::stable_sort(expected, std::greater(), number);
    const auto text = [&](int i) { return QString::number(number(i)); };
    EXPECT_EQ(HumanOrder(20001, text, true), expected);
}

/// A list in a form, used with a real pointer and real keys.
class PicList : public testing::Test {
protected:
    PicList() {
        mFolder.Save("Images/sBar.bmp", PlainSkin(QSize(16, 48)).load());
        mBox.MoveTo(kBoxPlace.x(), kBoxPlace.y());
        mList.Create(&mBox, "File Name\\Song Title\\Artist");
        QObject::connect(&mList, &c_PicList::LineSelChanged, [this](int line) {
            mReports << QString::number(line) + (mList.mByKeyboard ? " key" : "");
        });
        Report("header", &c_PicList::HeaderSelClicked);
        Report("remove", &c_PicList::RemoveWanted);
        Report("resized", &c_PicList::ColumnsResized);
        mForm.ShowInPlace();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Stage::Get()));
        mBox.setFocus();
    }

    void Report(const QString& what, auto signal) {
        QObject::connect(&mList, signal, [this, what](auto... number) {
            mReports << QStringList{what, QString::number(number)...}.join(u' ');
        });
    }

    void Fill(int count) {
        for (int i = 0; i < count; ++i)
            mList.AddItem(QStringLiteral("File %1\\Title\\Artist").arg(i), QString::number(i));
        mBox.grab();
    }

    QPoint At(QPoint at) const { return OnStage(mForm, kBoxPlace + at); }
    void Press(QPoint at) { QTest::mousePress(StageWindow(), Qt::LeftButton, {}, At(at)); }
    void MoveTo(QPoint at) { QTest::mouseMove(StageWindow(), At(at)); }
    void Release(QPoint at) { QTest::mouseRelease(StageWindow(), Qt::LeftButton, {}, At(at)); }
    void Drag(QPoint from, QPoint to) {
        Press(from);
        MoveTo(from + QPoint(0, 2));
        MoveTo(to);
    }
    void Click(QPoint at) { QTest::mouseClick(StageWindow(), Qt::LeftButton, {}, At(at)); }
    void Wheel(QPoint pixels, QPoint angle) {
        const QPointF at(50, 100);
        QWheelEvent event(at, mBox.mapToGlobal(at), pixels, angle, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&mBox, &event);
    }
    void Keys(std::initializer_list<QKeyCombination> keys) {
        for (const QKeyCombination key : keys)
            QTest::keyClick(&mBox, key.key(), key.keyboardModifiers());
    }

    QPoint CellAt(int line, int column) const { return mList.CellRect(line, column).center(); }
    bool InSight(int line) const { return !mList.CellRect(line, 0).isEmpty(); }
    int TopLine() const { return mList.LineAt(QPoint(5, mList.CellRect(-1, 0).bottom() + 1)); }
    std::string SelectedKey() const { return mList.LineKey(mList.LineSelectedNum()).toStdString(); }

    /// What the list has reported since the last call; a number alone is the line selected.
    std::string Reports() { return std::exchange(mReports, {}).join(", ").toStdString(); }

    PictureFolder mFolder;
    Form mForm{"f_Test", QSize(420, 300)};
    PictureBox mBox{&mForm, "pList", kBoxSize};
    QStringList mReports;
    c_PicList mList;
};

TEST_F(PicList, KeepsTheSelectionOnItsLine) {
    for (const char* text : {"b\\2", "a\\10", "B\\1", "c\\2"})
        mList.AddItem(text, text);
    mList.SelectLine(0);
    EXPECT_EQ(mList.SortByHeader(1, 2), (std::vector<int>{1, 0, 3, 2}));
    EXPECT_EQ(SelectedKey(), "b\\2");
    const std::pair<int, std::string> removals[] = {{0, "b\\2"}, {0, "c\\2"}, {1, "c\\2"}, {0, ""}};
    for (const auto& [line, selected] : removals) {
        mList.RemoveLine(line);
        EXPECT_EQ(SelectedKey(), selected);
    }
    EXPECT_EQ(mList.LineSelectedNum(), -1);
}

TEST_F(PicList, ScrollsByWheelAndThumb) {
    Fill(1000);
    Wheel(QPoint(), QPoint(0, -120));
    EXPECT_EQ(TopLine(), 3);
    Wheel(QPoint(), QPoint(0, 60));
    Wheel(QPoint(), QPoint(0, 60));
    EXPECT_EQ(TopLine(), 0);
    Wheel(QPoint(0, -5), QPoint(0, -15));
    const int height = mList.CellRect(1, 0).height();
    EXPECT_EQ(mList.CellRect(0, 0).height(), height - 5);
    Click(CellAt(0, 0));
    EXPECT_EQ(mList.CellRect(0, 0).height(), height) << "brought into sight";

    const int edge = kBoxSize.width(); // a pointer pushed against the side is just outside
    Click(QPoint(edge - 1, 200));
    EXPECT_TRUE(InSight(TopLine()) && !InSight(0) && TopLine() > 3 && TopLine() < 12) << TopLine();
    Press(QPoint(edge - 1, 20));
    MoveTo(QPoint(edge + 10, kBoxSize.height() + 30));
    EXPECT_EQ(mList.CellRect(999, 0).height(), height);
    MoveTo(QPoint(edge + 10, -30));
    EXPECT_EQ(TopLine(), 0);
    Release(QPoint(edge - 1, 20));
    EXPECT_EQ(Reports(), "0");
}

TEST_F(PicList, WantsAMenuWhereALineIsAndLeavesTheMarksOfMarkedOnes) {
    Fill(100);
    mList.SetMarks([](int line) { return line == 2 || line == 3; });
    QObject::connect(&mList, &c_PicList::LineRightClicked, [&](int line, QPoint place) {
        mReports << QStringLiteral("menu %1").arg(line);
        const QPoint at = place - PlaceOf(mForm).topLeft() - kBoxPlace;
        EXPECT_TRUE(mList.CellRect(line, 0).adjusted(-1, -1, 1, 1).contains(at)) << line;
    });
    for (const int line : {4, 3})
        QTest::mouseClick(StageWindow(), Qt::RightButton, {}, At(CellAt(line, 0)));
    Wheel(QPoint(), QPoint(0, -1200));
    Keys({Qt::SHIFT | Qt::Key_F10});
    EXPECT_EQ(Reports(), "4, menu 4, menu 3, menu 3");
}

TEST_F(PicList, MovesChosenLinesByDraggingAndByKeys) {
    Fill(30);
    std::set<int> marks;
    mList.SetMarks([&marks](int line) { return marks.contains(line); });
    QObject::connect(&mList, &c_PicList::LinesMoveWanted, [this](const auto& lines, int before) {
        mReports << "moved";
        mList.MoveLines(lines, before);
    });
    const auto firstKeys = [this] {
        QStringList keys;
        for (int line = 0; line < 6; ++line)
            keys << mList.LineKey(line);
        return keys.join(u' ').toStdString();
    };
    const QPoint upper(0, mList.CellRect(1, 0).height() / 3); // of a line
    Drag(CellAt(1, 0), CellAt(4, 1) - upper);
    Release(CellAt(4, 1) - upper);
    EXPECT_EQ(firstKeys(), "0 2 3 1 4 5");
    EXPECT_EQ(mList.LineSelectedNum(), 3);
    marks = {0, 3};
    Click(CellAt(3, 0)); // a click on a marked line
    EXPECT_EQ(Reports(), "1, moved, 3");
    Drag(CellAt(0, 0), CellAt(1, 1) + upper);
    Release(CellAt(1, 1) + upper);
    EXPECT_EQ(firstKeys(), "2 0 1 3 4 5") << "marked lines together";
    EXPECT_EQ(Reports(), "moved");

    marks.clear();
    mList.MoveSelection(1);
    Keys({Qt::ALT | Qt::Key_Up, Qt::ALT | Qt::Key_Up, Qt::ALT | Qt::Key_Down,
          Qt::ALT | Qt::Key_Down});
    EXPECT_EQ(Reports(), "moved, moved, moved") << "no further than to the top";
    EXPECT_EQ(firstKeys(), "2 1 0 3 4 5");
    EXPECT_EQ(SelectedKey(), "0");
    mList.SortByHeader(1, 1);
    Keys({Qt::ALT | Qt::Key_Down});
    EXPECT_EQ(mList.SortedColumn(), -1);
    EXPECT_EQ(firstKeys(), "2 1 3 0 4 5");
    EXPECT_EQ(Reports(), "moved");

    Drag(CellAt(0, 0), CellAt(3, 0));
    Keys({Qt::Key_Delete, Qt::Key_Escape});
    Release(CellAt(3, 0));
    EXPECT_EQ(Reports(), "0") << "given up";
    const QPoint below(20, kBoxSize.height() + 5);
    Drag(CellAt(0, 0), below);
    EXPECT_TRUE(QTest::qWaitFor([this] { return InSight(29); }));
    Release(below);
    EXPECT_EQ(mList.LineKey(29), "2");
}

TEST_F(PicList, ClicksHeadersWhereTheyWerePressedAndResizesColumnsByTheirBorders) {
    Fill(3);
    Press(CellAt(-1, 1));
    Release(CellAt(-1, 2));
    Click(CellAt(-1, 2));
    EXPECT_EQ(Reports(), "header 2");

    const auto border = [this](int column) {
        return QPoint(mList.CellRect(-1, column + 1).left(), CellAt(-1, 0).y());
    };
    const auto widen = [&](int column, int way) {
        const QPoint from = border(column) + QPoint(2, 0); // as good as on it
        Drag(from, from + QPoint(way, 0));
        Release(from + QPoint(way, 0));
    };
    const std::vector<int> first = mList.ColumnWidths();
    widen(0, 30);
    const std::vector<int> second = mList.ColumnWidths();
    EXPECT_EQ(second, (std::vector<int>{first[0] + 30, first[1] - 30, first[2]}));
    widen(0, 300);
    const std::vector<int> narrow = mList.ColumnWidths();
    EXPECT_EQ(narrow[1], narrow[2]);
    EXPECT_GT(narrow[1], 30);
    QTest::mouseDClick(StageWindow(), Qt::LeftButton, {}, At(border(0)));
    EXPECT_NEAR(mList.ColumnWidths()[0], mBox.Picture().TextWidth("File 0") + 14, 1);
    widen(1, -300);
    EXPECT_EQ(mList.ColumnWidths()[0], narrow[1]) << "pushed by the next one";
    EXPECT_EQ(Reports(), "resized, resized, resized, resized");
    for (const std::vector<int>& widths : {second, {5, 200, 145}, {}})
        mList.SetColumnWidths(widths);
    EXPECT_EQ(mList.ColumnWidths(), second);
}

TEST_F(PicList, MovesByKeysAlsoAsTheyRepeatButRemovesOnce) {
    Fill(60);
    Fingers fingers;
    for (const int key : {int{Qt::Key_Down}, int{'F'}, int{Qt::Key_Delete}, int{Qt::Key_Home}})
        for (const bool repeats : {false, true, true})
            fingers.Down(key, repeats);
    EXPECT_EQ(Reports(), "0 key, 1 key, 2 key, 3 key, 4 key, 5 key, remove, 0 key, 0 key, 0 key");
    Keys({Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_End, Qt::Key_Down});
    EXPECT_TRUE(InSight(59) && mBox.hasFocus());
    Keys({Qt::Key_Home});
    EXPECT_EQ(Reports(), "0 key, 59 key, 59 key, 0 key");
    // A page keeps one line of the last one in sight.
    Keys({Qt::Key_PageDown});
    const int page = mList.LineSelectedNum();
    EXPECT_TRUE(InSight(page) && !InSight(page + 2)) << page;
    EXPECT_EQ(mList.CellRect(0, 0).height(), mList.CellRect(1, 0).height()) << "scrolled";
    Keys({Qt::Key_PageDown});
    EXPECT_TRUE(InSight(page) && !InSight(page - 2)) << page;
    Keys({Qt::Key_PageUp});
    EXPECT_EQ(mList.LineSelectedNum(), page);
}

TEST_F(PicList, FindsTheLineThatBeginsAsTyped) {
    for (const char* text : {"Abba\\x", "\u00c9t\u00e9\\y", "abacus\\x", "Ada\\z", "Zoe\\a"})
        mList.AddItem(text, QString());
    std::int64_t now = 10000;
    const auto real = platform::ReplaceTimeSource({[] { return 0.0; }, [&now] { return now; }});
    // What is typed in one go, and what it finds; then comes a pause.
    const std::pair<const char*, std::string> cases[] = {{"a", "0 key"},
                                                         {"aba", "2 key, 2 key, 2 key"},
                                                         {"q", ""},
                                                         {"eTE", "1 key, 1 key, 1 key"},
                                                         {"aaa", "2 key, 3 key, 0 key"}};
    for (const auto& [typed, found] : cases) {
        now += 2000;
        for (const char letter : std::string(typed)) {
            now += 300;
            QTest::keyClick(&mBox, letter, letter < 'a' ? Qt::ShiftModifier : Qt::NoModifier);
        }
        EXPECT_EQ(Reports(), found) << typed;
    }
    now += 2000;
    mList.SortByHeader(1, 0);
    QTest::keyClick(&mBox, 'y');
    EXPECT_EQ(mList.CellText(mList.LineSelectedNum(), 1), "y");
    platform::ReplaceTimeSource(real);
}

TEST_F(PicList, ShowsCellsThatDoNotFitOnHovering) {
    QString name = "A title\tof <b>some</b> length";
    mList.AddItem(name + "\\Title", QString());
    const QPoint at = FromLogical(QRect(CellAt(0, 0), QSize(1, 1))).topLeft();
    QHelpEvent hover(QEvent::ToolTip, at, mBox.mapToGlobal(at));
    QApplication::sendEvent(&mBox, &hover);
    EXPECT_EQ(QToolTip::text(), name.replace(u'\t', u' ').toHtmlEscaped());
}

TEST_F(PicList, IsATableToScreenReaders) {
    mList.SetMarks([](int line) { return line == 35; });
    Fill(40);
    mList.SelectLine(30);
    auto* list = QAccessible::queryAccessibleInterface(&mBox);
    auto* table = list->tableInterface();
    EXPECT_EQ(table->selectedRows(), (QList<int>{30, 35}));
    EXPECT_EQ(table->selectedCellCount(), 2 * 3);
    EXPECT_EQ(table->rowDescription(7), "File 7, Title, Artist");
    auto* cell = table->cellAt(30, 1);
    EXPECT_TRUE(cell->state().selected && !cell->state().offscreen);
    EXPECT_TRUE(table->cellAt(0, 0)->state().offscreen);
    EXPECT_EQ(list->child(list->indexOfChild(cell)), cell);
    EXPECT_EQ(list->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells().value(0), list->child(1));
    mList.SortByHeader(0, 2);
    EXPECT_EQ(list->focusChild(), table->cellAt(9, 0));
    mList.ClearLines();
    EXPECT_FALSE(cell->isValid());
    Fill(40);
    EXPECT_EQ(TopLine(), 0);
}

} // namespace
