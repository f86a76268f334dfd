#include "platform/Text.h"
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
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <QWindow>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace {

using namespace toolkit;

constexpr QPoint kBoxPlace(31, 17);
constexpr QSize kBoxSize(360, 240);

/// The numbers that a signal was raised with.
std::vector<int> Numbers(const QSignalSpy& spy) {
    std::vector<int> numbers;
    for (const QVariantList& arguments : spy)
        numbers.push_back(arguments.value(0).toInt());
    return numbers;
}

TEST(HumanOrder, SortsAsPeopleExpect) {
    const struct {
        const char* rule;
        QString texts, sorted;
        bool downwards = false;
        QLocale locale = QLocale::c();
    } cases[] = {
        {"numbers by value", "10 b,9 a,Track 2,Track 11", "9 a,10 b,Track 2,Track 11"},
        {"case does not count", "b,A,a,B,", ",A,a,b,B"},
        {"accents hardly count", "Eva,Étude,Ezra,etude", "etude,Étude,Eva,Ezra"},
        {"downwards, equal ones stay", "b,A,a,B,2,10", "b,B,A,a,10,2", true},
        {"in Swedish", "Åsa,Zoe,Ada", "Ada,Zoe,Åsa", false, QLocale::Swedish},
        {"in English", "Åsa,Zoe,Ada", "Ada,Åsa,Zoe", false, QLocale::English},
    };
    for (const auto& c : cases) {
        const QStringList texts = c.texts.split(u',');
        QStringList sorted;
        for (const int index : HumanOrder(
                 static_cast<int>(texts.size()), [&](int i) { return texts[i]; }, c.downwards,
                 c.locale))
            sorted << texts[index];
        EXPECT_EQ(sorted.join(u','), c.sorted) << c.rule;
    }
}

/// Several threads share the work.
TEST(HumanOrder, SortsManyAndKeepsEqualOnesInOrder) {
    constexpr int kTexts = 20001;
    const auto number = [](int i) { return i * 7919 % 5000; };
    for (const bool downwards : {false, true}) {
        const std::vector<int> order = HumanOrder(
            kTexts, [&](int i) { return QString::number(number(i)); }, downwards);
        ASSERT_EQ(order.size(), std::size_t{kTexts});
        for (std::size_t i = 1; i < order.size(); ++i) {
            const auto [a, b] = std::pair(number(order[i - 1]), number(order[i]));
            ASSERT_TRUE(a == b ? order[i - 1] < order[i] : (a < b) != downwards) << i;
        }
    }
}

/// A list in a form, used with a real pointer and real keys.
class PicList : public testing::TestWithParam<double> {
protected:
    PicList() {
        mFolder.Save(QStringLiteral("Images/sBar.bmp"), PlainSkin(QSize(16, 48)).load());
        mBox.MoveTo(kBoxPlace.x(), kBoxPlace.y());
        mList.Create(&mBox, QStringLiteral("File Name\\Song Title\\Artist"));
        QObject::connect(&mList, &c_PicList::LineSelChanged, [this](int line) {
            mSelections << QString::number(line) + (mList.mRangeKey ? " range" : "") +
                               (mList.mAddKey ? " add" : "") + (mList.mByKeyboard ? " key" : "");
        });
        mForm.ShowInPlace();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Stage::Get()));
        mBox.setFocus();
    }

    void Fill(int count) {
        for (int i = 0; i < count; ++i)
            mList.AddItem(QStringLiteral("File %1\\Title\\Artist").arg(i), QString::number(i));
        mBox.grab();
    }

    void Press(QPoint at) {
        QTest::mousePress(StageWindow(), Qt::LeftButton, {}, OnStage(mForm, kBoxPlace + at));
    }
    void MoveTo(QPoint at) { QTest::mouseMove(StageWindow(), OnStage(mForm, kBoxPlace + at)); }
    void Release(QPoint at) {
        QTest::mouseRelease(StageWindow(), Qt::LeftButton, {}, OnStage(mForm, kBoxPlace + at));
    }
    void Click(QPoint at, Qt::KeyboardModifiers keys = {},
               Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(StageWindow(), button, keys, OnStage(mForm, kBoxPlace + at));
    }
    void DoubleClick(QPoint at) {
        QTest::mouseDClick(StageWindow(), Qt::LeftButton, {}, OnStage(mForm, kBoxPlace + at));
    }
    void Wheel(QPoint pixels, QPoint angle) {
        const QPointF at(50, 100);
        QWheelEvent event(at, mBox.mapToGlobal(at), pixels, angle, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&mBox, &event);
    }

    QPoint CellAt(int line, int column) const { return mList.CellRect(line, column).center(); }
    bool InSight(int line) const { return !mList.CellRect(line, 0).isEmpty(); }
    int TopLine() const { return mList.LineAt(QPoint(5, mList.CellRect(-1, 0).bottom() + 1)); }
    std::string SelectedKey() const { return mList.LineKey(mList.LineSelectedNum()).toStdString(); }

    /// The selections since the last call.
    std::string Selections() {
        return std::exchange(mSelections, {}).join(QStringLiteral(", ")).toStdString();
    }

    AtRatio mRatio{GetParam()};
    PictureFolder mFolder;
    Form mForm{QStringLiteral("f_Test"), QSize(420, 300)};
    PictureBox mBox{&mForm, QStringLiteral("pList"), kBoxSize};
    QStringList mSelections;
    c_PicList mList;
};

INSTANTIATE_TEST_SUITE_P(Ratio, PicList, testing::Values(1, 1.5));

TEST_P(PicList, KeepsTheSelectionOnItsLine) {
    for (const char* text : {"b\\2", "a\\10", "B\\1", "c\\2"})
        mList.AddItem(text, text);
    mList.SelectLine(1);
    EXPECT_EQ(mList.SortByHeader(1, 2), (std::vector<int>{1, 0, 3, 2}));
    EXPECT_EQ(SelectedKey(), "a\\10");
    mList.SelectLine(3);
    EXPECT_EQ(mList.SortByHeader(0, 0), (std::vector<int>{0, 1, 3, 2}));
    EXPECT_EQ(SelectedKey(), "B\\1");
    EXPECT_EQ(mList.SortByHeader(3, 0), (std::vector<int>{0, 1, 2, 3}));
    mList.SortByHeader(0, 2);

    // Now c b B a, selected B.
    mList.RemoveLine(0);
    EXPECT_EQ(SelectedKey(), "B\\1");
    mList.RemoveLine(1);
    EXPECT_EQ(SelectedKey(), "a\\10");
    mList.RemoveLine(1);
    EXPECT_EQ(mList.LineSelectedNum(), 0);
    mList.RemoveLine(0);
    EXPECT_EQ(mList.LineSelectedNum(), -1);
}

TEST_P(PicList, SelectsTheLineUnderThePointer) {
    Fill(100);
    Wheel(QPoint(), QPoint(0, -120));
    EXPECT_EQ(TopLine(), 3);
    Wheel(QPoint(), QPoint(0, 60));
    Wheel(QPoint(), QPoint(0, 60));
    EXPECT_EQ(TopLine(), 0);
    Wheel(QPoint(0, -5), QPoint(0, -15));
    const int height = mList.CellRect(1, 0).height();
    EXPECT_EQ(mList.CellRect(0, 0).height(), height - 5);

    const QPoint secondLine(20, mList.CellRect(-1, 0).bottom() + 1 + height - 5);
    Click(secondLine, Qt::ShiftModifier);
    Click(secondLine, Qt::ControlModifier);
    Click(secondLine - QPoint(0, 1));
    EXPECT_EQ(mList.CellRect(0, 0).height(), height); // scrolled into view
    EXPECT_EQ(Selections(), "1 range, 1 add, 0");
    QSignalSpy doubles(&mList, &c_PicList::LineDoubleClicked);
    DoubleClick(CellAt(2, 1));
    EXPECT_EQ(Numbers(doubles), (std::vector<int>{2}));
}

TEST_P(PicList, WantsAMenuForALineAndLeavesTheMarksOfMarkedOnes) {
    Fill(100);
    mList.SetMarks([](int line) { return line == 2 || line == 3; });
    std::vector<int> lines;
    QPoint at;
    QObject::connect(&mList, &c_PicList::LineRightClicked, [&](int line, QPoint place) {
        lines.push_back(line);
        at = place - PlaceOf(mForm).topLeft() - kBoxPlace;
    });
    QTest::keyClick(&mBox, Qt::Key_Menu);
    Click(CellAt(4, 2), {}, Qt::RightButton);
    Click(CellAt(3, 0), {}, Qt::RightButton);
    EXPECT_LE((at - CellAt(3, 0)).manhattanLength(), 1);
    EXPECT_EQ(Selections(), "4");
    Wheel(QPoint(), QPoint(0, -1200));
    QTest::keyClick(&mBox, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(lines, (std::vector<int>{4, 3, 3}));
    EXPECT_TRUE(mList.CellRect(3, 0).contains(at)) << "brought into sight";
}

TEST_P(PicList, ClicksHeadersWhereTheyWerePressed) {
    Fill(1);
    QSignalSpy headers(&mList, &c_PicList::HeaderSelClicked);
    Click(CellAt(-1, 1));
    Press(CellAt(-1, 1));
    Release(CellAt(-1, 2));
    DoubleClick(CellAt(-1, 2));
    EXPECT_EQ(Numbers(headers), (std::vector<int>{1, 2, 2}));
    EXPECT_EQ(Selections(), "");
}

TEST_P(PicList, MovesChosenLinesByDraggingAndByKeys) {
    Fill(30);
    std::set<int> marks;
    mList.SetMarks([&marks](int line) { return marks.contains(line); });
    QSignalSpy moves(&mList, &c_PicList::LinesMoveWanted);
    QObject::connect(&mList, &c_PicList::LinesMoveWanted, &mList, &c_PicList::MoveLines);
    const auto drag = [this](int line, QPoint to) {
        Press(CellAt(line, 0));
        MoveTo(CellAt(line, 0) + QPoint(0, 2));
        MoveTo(to);
    };
    const auto keys = [this](int count) {
        QStringList lines;
        for (int line = 0; line < count; ++line)
            lines << mList.LineKey(line);
        return lines.join(u' ').toStdString();
    };
    const QPoint upper(0, mList.CellRect(1, 0).height() / 3); // of a line
    drag(1, CellAt(4, 1) - upper);
    Release(CellAt(4, 1) - upper);
    EXPECT_EQ(keys(6), "0 2 3 1 4 5");
    EXPECT_EQ(mList.LineSelectedNum(), 3);
    marks = {0, 3};
    Click(CellAt(3, 0)); // a click on a marked line
    EXPECT_EQ(Selections(), "1, 3");
    drag(0, CellAt(1, 1) + upper);
    Release(CellAt(1, 1) + upper);
    EXPECT_EQ(keys(6), "2 0 1 3 4 5") << "marked lines together";
    EXPECT_EQ(Selections(), "");

    marks.clear();
    moves.clear();
    mList.SelectLine(1);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Down})
        QTest::keyClick(&mBox, key, Qt::AltModifier);
    EXPECT_EQ(moves.size(), 3) << "no further than to the top";
    EXPECT_EQ(keys(6), "2 1 0 3 4 5");
    EXPECT_EQ(SelectedKey(), "0");

    moves.clear();
    drag(0, CellAt(3, 0));
    QTest::keyClick(&mBox, Qt::Key_Delete);
    QTest::keyClick(&mBox, Qt::Key_Escape);
    Release(CellAt(3, 0));
    drag(0, CellAt(3, 0));
    MoveTo(CellAt(0, 0));
    Release(CellAt(0, 0));
    EXPECT_EQ(moves.size(), 0) << "given up, or back in its place";
    drag(0, QPoint(20, kBoxSize.height() + 5));
    EXPECT_TRUE(QTest::qWaitFor([this] { return InSight(29); }));
    Release(QPoint(20, kBoxSize.height() + 5));
    EXPECT_EQ(mList.LineKey(29), "2");
}

TEST_P(PicList, ResizesColumnsByTheirBorders) {
    Fill(3);
    QSignalSpy sorted(&mList, &c_PicList::HeaderSelClicked);
    const auto border = [this](int column) {
        return QPoint(mList.CellRect(-1, column + 1).left(), CellAt(-1, column).y());
    };
    const auto drag = [&](QPoint from, int way) {
        Press(from);
        MoveTo(from + QPoint(way, 0));
        Release(from + QPoint(way, 0));
    };
    const std::vector<int> first = mList.ColumnWidths();
    drag(border(0), 30);
    const std::vector<int> second = mList.ColumnWidths();
    EXPECT_EQ(second, (std::vector<int>{first[0] + 30, first[1] - 30, first[2]}));
    MoveTo(border(1));
    EXPECT_EQ(mBox.cursor().shape(), Qt::SplitHCursor);
    drag(border(0), 300);
    const std::vector<int> narrow = mList.ColumnWidths();
    EXPECT_EQ(narrow[1], narrow[2]);
    EXPECT_GT(narrow[1], 30);

    QSignalSpy resized(&mList, &c_PicList::ColumnsResized);
    DoubleClick(border(0));
    EXPECT_EQ(resized.size(), 1);
    EXPECT_NEAR(mList.ColumnWidths()[0], mBox.Picture().TextWidth("File 0") + 14, 1);
    for (const std::vector<int>& widths : {second, {5, 200, 145}, {}})
        mList.SetColumnWidths(widths);
    EXPECT_EQ(mList.ColumnWidths(), second);
    EXPECT_EQ(sorted.size(), 0);
}

TEST_P(PicList, MovesBySeveralKeys) {
    Fill(60);
    for (const Qt::KeyboardModifiers keys : {Qt::NoModifier, Qt::ShiftModifier})
        QTest::keyClick(&mBox, Qt::Key_Down, keys);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Up, Qt::Key_Space})
        QTest::keyClick(&mBox, key, Qt::ControlModifier);
    EXPECT_EQ(mList.CursorLine(), 0);
    QTest::keyClick(&mBox, Qt::Key_Down);
    EXPECT_EQ(Selections(), "0 key, 1 range key, 0 add key, 1 key");
    mList.MoveSelection(5);
    QTest::keyClick(&mBox, Qt::Key_Up);
    EXPECT_EQ(Selections(), "0 key");
    QTest::keyClick(&mBox, Qt::Key_End);
    EXPECT_TRUE(InSight(59));
    QTest::keyClick(&mBox, Qt::Key_Down);
    QTest::keyClick(&mBox, Qt::Key_Home);
    EXPECT_TRUE(InSight(0));
    EXPECT_EQ(Selections(), "59 key, 59 key, 0 key");
    // A page keeps one line of the last one in sight.
    QTest::keyClick(&mBox, Qt::Key_PageDown);
    const int page = mList.LineSelectedNum();
    EXPECT_TRUE(InSight(page) && InSight(0) && !InSight(page + 2)) << page;
    QTest::keyClick(&mBox, Qt::Key_PageDown);
    EXPECT_TRUE(InSight(page) && !InSight(page - 2)) << page;
    QTest::keyClick(&mBox, Qt::Key_PageUp);
    EXPECT_EQ(mList.LineSelectedNum(), page);
}

TEST_P(PicList, MovesAsAKeyRepeatsButRemovesOnce) {
    Fill(60);
    QSignalSpy removals(&mList, &c_PicList::RemoveWanted);
    Fingers fingers;
    for (const int key : {int{Qt::Key_Down}, int{'F'}, int{Qt::Key_Delete}})
        for (const bool repeats : {false, true, true})
            fingers.Down(key, repeats);
    EXPECT_EQ(Selections(), "0 key, 1 key, 2 key, 3 key, 4 key, 5 key");
    EXPECT_EQ(removals.size(), 1);
}

TEST_P(PicList, LeavesOnlyTabAndEscapeToTheForm) {
    Fill(3);
    PictureBox other(&mForm, QStringLiteral("pOther"), QSize(5, 5));
    other.SetButton(2);
    other.show();
    QSignalSpy doubles(&mList, &c_PicList::LineDoubleClicked);
    QSignalSpy close(&mForm, &Form::CloseRequested);
    mList.SelectLine(1);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Left, Qt::Key_Right, Qt::Key_Escape})
        QTest::keyClick(&mBox, key);
    EXPECT_EQ(Numbers(doubles), (std::vector<int>{1}));
    EXPECT_EQ(close.size(), 1);
    EXPECT_TRUE(mBox.hasFocus());
    QTest::keyClick(&mBox, Qt::Key_Tab);
    EXPECT_TRUE(other.hasFocus());
}

TEST_P(PicList, FindsTheLineThatBeginsAsTyped) {
    for (const char* text : {"Abba\\x", "\u00c9t\u00e9\\y", "abacus\\x", "Ada\\z", "Zoe\\a"})
        mList.AddItem(QString::fromUtf8(text), QString());
    std::int64_t now = 10000;
    const auto real = platform::ReplaceTimeSource({[] { return 0.0; }, [&now] { return now; }});
    const struct {
        const char* typed; // in one go; then comes a pause
        std::string found;
    } cases[] = {{"a", "0 key"},
                 {"aD", "2 key, 3 key"},
                 {"aba", "0 key, 0 key, 2 key"},
                 {"q", ""},
                 {"eTE", "1 key, 1 key, 1 key"},
                 {"z", "4 key"},
                 {"aaa", "0 key, 2 key, 3 key"}};
    for (const auto& c : cases) {
        now += 2000;
        for (const char* letter = c.typed; *letter != '\0'; ++letter) {
            now += 300;
            QTest::keyClick(&mBox, *letter, *letter < 'a' ? Qt::ShiftModifier : Qt::NoModifier);
        }
        EXPECT_EQ(Selections(), c.found) << c.typed;
    }
    now += 2000;
    mList.SortByHeader(1, 0);
    QTest::keyClick(&mBox, 'y');
    EXPECT_EQ(mList.CellText(mList.LineSelectedNum(), 1), "y");
    platform::ReplaceTimeSource(real);
}

TEST_P(PicList, FindsATextInAnyColumn) {
    for (const char* text : {"Abba\\Été", "x?y\\Zoe", "tabby\\a\nb", "AC\\DC"})
        mList.AddItem(QString::fromUtf8(text), QString());
    mList.AddItem(platform::EscapeSeparators("AC\\DC?") + "\\what", QString());
    const struct {
        const char* text;
        int from;
        bool forward;
        int found;
    } cases[] = {{"bb", 0, true, 0},      {"BB", 1, true, 2},  {"bb", 4, true, 0},
                 {"bb", 4, false, 2},     {"bb", 5, true, 0},  {"c", -1, false, 4},
                 {"bb", 1, false, 0},     {"ÉTÉ", 3, true, 0}, {"c\\d", 0, true, 4},
                 {"C?W", 0, true, -1},    {"dc?", 0, true, 4}, {"a b", 0, true, 2},
                 {"nothing", 2, true, -1}};
    for (const auto& c : cases)
        EXPECT_EQ(mList.FindText(QString::fromUtf8(c.text), c.from, c.forward), c.found) << c.text;
}

TEST_P(PicList, ScrollsWithTheThumbAndBesideIt) {
    Fill(1000);
    const int edge = kBoxSize.width(); // a pointer pushed against the side is just outside
    Click(QPoint(edge - 1, 200));
    EXPECT_TRUE(InSight(TopLine()) && !InSight(0) && TopLine() > 3 && TopLine() < 12) << TopLine();
    Press(QPoint(edge - 1, 20));
    MoveTo(QPoint(edge + 10, kBoxSize.height() + 30));
    EXPECT_EQ(mList.CellRect(999, 0).height(), mList.CellRect(998, 0).height());
    MoveTo(QPoint(edge + 10, -30));
    EXPECT_EQ(TopLine(), 0);
    Release(QPoint(edge - 1, 20));
    EXPECT_EQ(Selections(), "");
}

TEST_P(PicList, PrintsEachVisibleCellOnce) {
    std::vector<std::pair<int, int>> printed;
    QObject::connect(&mList, &c_PicList::LinePrint, [&](ListCell& cell) {
        printed.emplace_back(cell.line, cell.column);
        EXPECT_EQ(cell.text, mList.CellText(cell.line, cell.column));
        cell.text = QString(40, QChar(0x2588));
        cell.color = Rgb(255, 50, 50);
    });
    mList.AddItem(platform::EscapeSeparators("AC\\DC?") + "\\two\nlines", QString());
    EXPECT_EQ(mList.CellText(0, 0), "AC\\DC?");
    EXPECT_EQ(mList.CellText(0, 1), "two lines");
    Fill(1000);
    mList.SelectLine(500);
    printed.clear();
    for (int i = 0; i < 5; ++i)
        mList.Refresh();
    EXPECT_TRUE(printed.empty());
    mBox.grab();
    std::vector<std::pair<int, int>> visible;
    for (int cell = 0; cell < 3 * mList.LineCount(); ++cell)
        if (InSight(cell / 3))
            visible.emplace_back(cell / 3, cell % 3);
    EXPECT_EQ(printed, visible);
    const QPoint text(mList.CellRect(500, 1).left() + 12, CellAt(500, 1).y());
    EXPECT_EQ(mBox.Picture().Pixel(text.x(), text.y()), Rgb(255, 50, 50));
    const int edge = mList.CellRect(500, 1).right() - 3;
    EXPECT_NE(mBox.Picture().Pixel(edge, text.y()), Rgb(255, 50, 50)) << "ends in an ellipsis";
}

TEST_P(PicList, ShowsCellsThatDoNotFitOnHovering) {
    const QString name = QStringLiteral("A title of <b>some</b> length");
    mList.AddItem(name + "\\Title", QString());
    for (const auto& [column, shown] : {std::pair(0, name.toHtmlEscaped()), {1, QString()}}) {
        const QPoint at = FromLogical(QRect(CellAt(0, column), QSize(1, 1))).topLeft();
        QHelpEvent hover(QEvent::ToolTip, at, mBox.mapToGlobal(at));
        QApplication::sendEvent(&mBox, &hover);
        EXPECT_TRUE(QTest::qWaitFor([&text = shown] { return QToolTip::text() == text; }))
            << column;
    }
}

TEST_P(PicList, IsATableToScreenReaders) {
    QAccessible::setActive(true);
    mList.SetSubHeader(QStringLiteral("40 songs"));
    mList.SetMarks([](int line) { return line == 35; });
    Fill(40);
    mList.SelectLine(30);
    auto* list = QAccessible::queryAccessibleInterface(&mBox);
    ASSERT_EQ(list->role(), QAccessible::Table);
    auto* table = list->tableInterface();
    EXPECT_EQ(table->selectedRows(), (QList<int>{30, 35}));
    EXPECT_TRUE(table->cellAt(35, 2)->state().selected);
    EXPECT_EQ(table->rowDescription(7), "File 7, Title, Artist");
    EXPECT_EQ(list->child(0)->text(QAccessible::Description), "40 songs");

    auto* cell = table->cellAt(30, 1);
    EXPECT_EQ(cell->text(QAccessible::Name), "Title");
    EXPECT_TRUE(cell->state().selected && !cell->state().offscreen);
    EXPECT_TRUE(table->cellAt(0, 0)->state().offscreen);
    EXPECT_EQ(list->child(list->indexOfChild(cell)), cell);
    EXPECT_EQ(list->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    EXPECT_EQ(list->focusChild(), table->cellAt(30, 0));
    mList.SortByHeader(0, 2);
    EXPECT_EQ(list->focusChild(), table->cellAt(9, 0));
    EXPECT_EQ(list->child(0)->text(QAccessible::Description), "40 songs, sorted descending");
    mList.SortByHeader(0, 0);
    EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells().value(0), list->child(1));

    QSignalSpy headers(&mList, &c_PicList::HeaderSelClicked);
    list->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(Numbers(headers), (std::vector<int>{2}));
    EXPECT_TRUE(table->selectRow(3));
    EXPECT_EQ(mList.LineSelectedNum(), 3);
    mList.ClearLines();
    EXPECT_FALSE(cell->isValid());
    QAccessible::setActive(false);
}

} // namespace
