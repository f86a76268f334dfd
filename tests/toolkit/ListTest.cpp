#include "platform/Text.h"
#include "platform/Time.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/Form.h"
#include "toolkit/HumanOrder.h"
#include "toolkit/Picture.h"
#include "toolkit/c_PicList.h"

#include <QAccessible>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>
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

std::vector<QString> Texts(const QStringList& texts) { return {texts.begin(), texts.end()}; }

TEST(HumanOrder, SortsAsPeopleExpect) {
    const struct {
        const char* rule;
        QLocale locale;
        QStringList texts;
        bool downwards;
        std::vector<int> order;
    } cases[] = {
        {"numbers by value",
         QLocale::c(),
         {"10 b", "9 a", "Track 2", "Track 11", "Track 1"},
         false,
         {1, 0, 4, 2, 3}},
        {"case does not count", QLocale::c(), {"b", "A", "a", "B", ""}, false, {4, 1, 2, 0, 3}},
        {"accents hardly count",
         QLocale::c(),
         {"Eva", "\u00c9tude", "Ezra", "etude"},
         false,
         {3, 1, 0, 2}},
        {"downwards, equal ones stay",
         QLocale::c(),
         {"b", "A", "a", "B", "2", "10"},
         true,
         {0, 3, 1, 2, 5, 4}},
        {"as the language has it",
         QLocale(QLocale::Swedish),
         {"\u00c5sa", "Zoe", "Ada"},
         false,
         {2, 1, 0}},
        {"in English", QLocale(QLocale::English), {"\u00c5sa", "Zoe", "Ada"}, false, {2, 0, 1}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(HumanOrder(Texts(c.texts), c.downwards, c.locale), c.order) << c.rule;
}

/// A list in a form, used with a real pointer and real keys.
class PicList : public testing::TestWithParam<double> {
protected:
    PicList() {
        mFolder.Save(QStringLiteral("Images/sBar.bmp"), PlainSkin(QSize(16, 48)).load());
        mBox.move(kBoxPlace);
        mList.Create(&mBox, QStringLiteral("File Name\\Song Title\\Artist"));
        QObject::connect(&mList, &c_PicList::LineSelChanged, [this](int line) {
            mSelections.push_back({line, mList.mRangeKey, mList.mAddKey, mList.mByKeyboard});
        });
        mForm.ShowInPlace();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mForm));
        mBox.setFocus();
    }

    void Fill(int count) {
        for (int i = 0; i < count; ++i)
            mList.AddItem(QStringLiteral("File %1\\Title\\Artist").arg(i), QString::number(i));
        mBox.grab();
    }

    void Press(QPoint at, Qt::KeyboardModifiers keys = {},
               Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(mForm.windowHandle(), button, keys, kBoxPlace + at);
    }
    void MoveTo(QPoint at) { QTest::mouseMove(mForm.windowHandle(), kBoxPlace + at); }
    void Release(QPoint at) {
        QTest::mouseRelease(mForm.windowHandle(), Qt::LeftButton, {}, kBoxPlace + at);
    }
    void Click(QPoint at, Qt::KeyboardModifiers keys = {},
               Qt::MouseButton button = Qt::LeftButton) {
        Press(at, keys, button);
        QTest::mouseRelease(mForm.windowHandle(), button, keys, kBoxPlace + at);
    }
    void DoubleClick(QPoint at) {
        QTest::mouseDClick(mForm.windowHandle(), Qt::LeftButton, {}, kBoxPlace + at);
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

    struct Selection {
        int line;
        bool range, add, byKeyboard;
        bool operator==(const Selection&) const = default;
        friend void PrintTo(const Selection& s, std::ostream* out) {
            *out << s.line << (s.range ? " range" : "") << (s.add ? " add" : "")
                 << (s.byKeyboard ? " keys" : "");
        }
    };

    AtRatio mRatio{GetParam()};
    PictureFolder mFolder;
    Form mForm{QStringLiteral("f_Test"), QSize(420, 300)};
    PictureBox mBox{&mForm, QStringLiteral("pList"), kBoxSize};
    std::vector<Selection> mSelections;
    c_PicList mList;
};

INSTANTIATE_TEST_SUITE_P(Ratio, PicList, testing::Values(1, 1.5));

TEST_P(PicList, KeepsTheSelectionOnItsLine) {
    for (const char* text : {"b\\2", "a\\10", "B\\1", "c\\2"})
        mList.AddItem(text, text);
    QSignalSpy sorted(&mList, &c_PicList::HeaderSelChanged);
    mList.SelectLine(1);
    EXPECT_EQ(mList.SortByHeader(1, 2), (std::vector<int>{1, 0, 3, 2}));
    EXPECT_EQ(mList.LineKey(mList.LineSelectedNum()), "a\\10");
    mList.SelectLine(3);
    EXPECT_EQ(mList.SortByHeader(0, 0), (std::vector<int>{0, 1, 3, 2}));
    EXPECT_EQ(mList.LineKey(mList.LineSelectedNum()), "B\\1");
    EXPECT_EQ(sorted.size(), 2);
    mList.SortByHeader(0, 0);
    EXPECT_EQ(mList.SortByHeader(3, 0), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(sorted.size(), 2);
    mList.SortByHeader(0, 2);
    EXPECT_EQ(sorted.size(), 3);

    // Now c b B a, selected B.
    mList.RemoveLine(0);
    EXPECT_EQ(mList.LineKey(mList.LineSelectedNum()), "B\\1");
    mList.AddItem("new", "new");
    mList.RemoveLine(1);
    EXPECT_EQ(mList.LineKey(mList.LineSelectedNum()), "a\\10");
    mList.RemoveLine(2);
    mList.RemoveLine(1);
    EXPECT_EQ(mList.LineSelectedNum(), 0);
    mList.RemoveLine(0);
    EXPECT_EQ(mList.LineSelectedNum(), -1);
    EXPECT_EQ(mList.LineKey(-1), "");
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
    EXPECT_EQ(mList.CellRect(0, 0).height(), height); // brought into sight
    QSignalSpy menus(&mList, &c_PicList::LineRightClicked);
    Click(CellAt(4, 2), {}, Qt::RightButton);
    EXPECT_EQ(mSelections, (std::vector<Selection>{{1, true, false, false},
                                                   {1, false, true, false},
                                                   {0, false, false, false},
                                                   {4, false, false, false}}));
    EXPECT_EQ(menus.size(), 1);
    EXPECT_FALSE(mList.mRangeKey || mList.mAddKey);

    QSignalSpy doubles(&mList, &c_PicList::LineDoubleClicked);
    DoubleClick(CellAt(2, 1));
    EXPECT_EQ(Numbers(doubles), (std::vector<int>{2}));
}

TEST_P(PicList, ClicksHeadersWhereTheyWerePressed) {
    Fill(1);
    mList.SetSubHeader(QStringLiteral("1 song\\none without title\\"));
    QSignalSpy headers(&mList, &c_PicList::HeaderSelClicked);
    QSignalSpy doubles(&mList, &c_PicList::HeaderDoubleClicked);
    QSignalSpy subHeaders(&mList, &c_PicList::SubHeaderClicked);
    Click(CellAt(-1, 1));
    Press(CellAt(-1, 1));
    Release(CellAt(-1, 2));
    EXPECT_EQ(Numbers(headers), (std::vector<int>{1}));
    DoubleClick(CellAt(-1, 2));
    EXPECT_EQ(Numbers(doubles), (std::vector<int>{2}));
    EXPECT_EQ(Numbers(headers), (std::vector<int>{1, 2, 2}));
    Click(QPoint(20, mList.CellRect(-1, 0).bottom() + 5));
    EXPECT_EQ(Numbers(subHeaders), (std::vector<int>{0}));
    EXPECT_TRUE(mSelections.empty());
}

TEST_P(PicList, MovesBySeveralKeys) {
    Fill(60);
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers keys;
        int line;
    } cases[] = {{Qt::Key_Down, {}, 0},
                 {Qt::Key_Down, Qt::ShiftModifier, 1},
                 {Qt::Key_Up, Qt::ControlModifier, 0},
                 {Qt::Key_Up, {}, 0},
                 {Qt::Key_End, {}, 59},
                 {Qt::Key_Down, {}, 59},
                 {Qt::Key_Home, Qt::ShiftModifier, 0}};
    for (const auto& c : cases) {
        mSelections.clear();
        QTest::keyClick(&mBox, c.key, c.keys);
        EXPECT_EQ(mSelections, (std::vector<Selection>{{c.line, c.keys == Qt::ShiftModifier,
                                                        c.keys == Qt::ControlModifier, true}}));
        EXPECT_TRUE(InSight(c.line));
    }
    // A page keeps one line of the last one in sight.
    QTest::keyClick(&mBox, Qt::Key_PageDown);
    const int page = mList.LineSelectedNum();
    EXPECT_TRUE(InSight(page) && InSight(0) && !InSight(page + 2)) << page;
    QTest::keyClick(&mBox, Qt::Key_PageDown);
    EXPECT_TRUE(InSight(page) && !InSight(page - 2)) << page;
    QTest::keyClick(&mBox, Qt::Key_PageUp);
    EXPECT_EQ(mList.LineSelectedNum(), page);
}

TEST_P(PicList, LeavesOnlyTabAndEscapeToTheForm) {
    Fill(3);
    PictureBox other(&mForm, QStringLiteral("pOther"), QSize(5, 5));
    other.SetButton(2);
    other.show();
    QSignalSpy all(&mList, &c_PicList::SelectAllWanted);
    QSignalSpy remove(&mList, &c_PicList::RemoveWanted);
    QSignalSpy doubles(&mList, &c_PicList::LineDoubleClicked);
    QSignalSpy close(&mForm, &Form::CloseRequested);
    mList.SelectLine(1);
    QTest::keyClick(&mBox, Qt::Key_A, Qt::ControlModifier);
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Return, Qt::Key_Left, Qt::Key_Right,
                              Qt::Key_Up, Qt::Key_Down, Qt::Key_Escape})
        QTest::keyClick(&mBox, key);
    EXPECT_TRUE(mBox.hasFocus());
    EXPECT_EQ(all.size(), 1);
    EXPECT_EQ(remove.size(), 1);
    EXPECT_EQ(Numbers(doubles), (std::vector<int>{1}));
    EXPECT_EQ(close.size(), 1);
    QTest::keyClick(&mBox, Qt::Key_Tab);
    EXPECT_TRUE(other.hasFocus());
}

TEST_P(PicList, FindsTheLineThatBeginsAsTyped) {
    for (const char* text : {"Abba\\x", "\u00c9t\u00e9\\y", "abacus\\x", "Ada\\z", "Zoe\\a"})
        mList.AddItem(QString::fromUtf8(text), QString());
    std::int64_t now = 10000;
    const auto real = platform::ReplaceTimeSource({[] { return 0.0; }, [&now] { return now; }});
    const struct {
        const char* typed;
        int pause;
        int line;
    } cases[] = {{"a", 2000, 0}, {"a", 2000, 2}, {"D", 300, 3}, {"a", 2000, 0}, {"b", 300, 0},
                 {"a", 300, 2},  {"e", 2000, 1}, {"T", 300, 1}, {"E", 300, 1},  {"z", 2000, 4},
                 {"q", 2000, 4}, {"a", 2000, 0}, {"a", 300, 2}, {"a", 300, 3}};
    int number = 0;
    for (const auto& c : cases) {
        now += c.pause;
        QTest::keyClick(&mBox, c.typed[0], *c.typed < 'a' ? Qt::ShiftModifier : Qt::NoModifier);
        EXPECT_EQ(mList.LineSelectedNum(), c.line) << "after key " << ++number;
        EXPECT_FALSE(mSelections.back().range);
    }
    now += 2000;
    mList.SortByHeader(1, 0);
    QTest::keyClick(&mBox, 'y');
    EXPECT_EQ(mList.CellText(mList.LineSelectedNum(), 1), "y");
    platform::ReplaceTimeSource(real);
}

TEST_P(PicList, ScrollsWithTheThumbAndBesideIt) {
    Fill(1000);
    const int edge = kBoxSize.width(); // a pointer pushed against the side is just outside
    Click(QPoint(edge - 1, 200));
    EXPECT_TRUE(InSight(TopLine()) && !InSight(0) && TopLine() > 3 && TopLine() < 12) << TopLine();
    Press(QPoint(edge - 1, 20));
    EXPECT_FALSE(InSight(999));
    MoveTo(QPoint(edge + 10, kBoxSize.height() + 30));
    EXPECT_TRUE(InSight(999));
    EXPECT_EQ(mList.CellRect(999, 0).height(), mList.CellRect(998, 0).height());
    MoveTo(QPoint(edge + 10, -30));
    EXPECT_EQ(TopLine(), 0);
    Release(QPoint(edge - 1, 20));
    EXPECT_TRUE(mSelections.empty());
}

TEST_P(PicList, PrintsEachVisibleCellOnce) {
    std::multiset<std::pair<int, int>> printed;
    QObject::connect(&mList, &c_PicList::LinePrint, [&](ListCell& cell) {
        printed.insert({cell.line, cell.column});
        EXPECT_EQ(cell.text, mList.CellText(cell.line, cell.column));
        cell.text = QStringLiteral("\u2588\u2588\u2588\u2588");
        cell.color = Rgb(255, 50, 50);
    });
    Fill(1000);
    mList.SelectLine(500);
    printed.clear();
    for (int i = 0; i < 5; ++i)
        mList.Refresh();
    EXPECT_TRUE(printed.empty());
    mBox.grab();
    std::multiset<std::pair<int, int>> visible;
    for (int line = 0; line < 1000; ++line)
        for (int column = 0; column < 3 && InSight(line); ++column)
            visible.insert({line, column});
    EXPECT_EQ(printed, visible);
    const QPoint text(mList.CellRect(500, 1).left() + 12, CellAt(500, 1).y());
    EXPECT_EQ(mBox.Picture().Pixel(text.x(), text.y()), Rgb(255, 50, 50));
}

TEST_P(PicList, ShowsEveryText) {
    mList.AddItem(platform::EscapeSeparators("AC\\DC?") + "\\two\nlines", QString());
    mList.AddItem(platform::TextFromPath("caf\xe9"), QString());
    EXPECT_EQ(mList.CellText(0, 0), "AC\\DC?");
    EXPECT_EQ(mList.CellText(0, 1), "two lines");
    EXPECT_EQ(mList.CellText(0, 2), "");
    EXPECT_EQ(mList.CellText(1, 0), QString::fromUtf8("caf\u00e9"));
}

TEST_P(PicList, IsATableToScreenReadersThatKnewTheBoxBefore) {
    QAccessible::setActive(true);
    PictureBox box(&mForm, QStringLiteral("box"), kBoxSize);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&box)->role(), QAccessible::Graphic);
    c_PicList list;
    list.Create(&box, QStringLiteral("Title"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&box)->role(), QAccessible::Table);
    QAccessible::setActive(false);
}

TEST_P(PicList, IsATableToScreenReaders) {
    QAccessible::setActive(true);
    mList.SetSubHeader(QStringLiteral("40 songs"));
    Fill(40);
    mList.SelectLine(30);
    auto* list = QAccessible::queryAccessibleInterface(&mBox);
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->role(), QAccessible::Table);
    auto* table = list->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 40);
    EXPECT_EQ(table->columnCount(), 3);
    EXPECT_EQ(table->selectedRows(), QList<int>{30});
    EXPECT_EQ(table->rowDescription(7), "File 7, Title, Artist");
    EXPECT_EQ(table->columnDescription(2), "Artist");
    EXPECT_EQ(list->child(0)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(list->child(0)->text(QAccessible::Name), "File Name");
    EXPECT_EQ(list->child(0)->text(QAccessible::Description), "40 songs");

    auto* cell = table->cellAt(30, 1);
    EXPECT_EQ(cell->text(QAccessible::Name), "Title");
    EXPECT_TRUE(cell->state().selected && !cell->state().offscreen);
    EXPECT_TRUE(table->cellAt(0, 0)->state().offscreen);
    EXPECT_EQ(list->child(list->indexOfChild(cell)), cell);
    EXPECT_EQ(list->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    EXPECT_EQ(list->focusChild(), table->cellAt(30, 0));
    EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells().value(0), list->child(1));

    QSignalSpy headers(&mList, &c_PicList::HeaderSelClicked);
    list->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(Numbers(headers), (std::vector<int>{2}));
    EXPECT_TRUE(table->selectRow(3));
    EXPECT_EQ(mList.LineSelectedNum(), 3);
    mList.RemoveLine(39);
    EXPECT_EQ(table->cellAt(39, 0), nullptr);
    mList.ClearLines();
    EXPECT_FALSE(cell->isValid());
    QAccessible::setActive(false);
}

} // namespace
