#pragma once

#include "toolkit/ColorRef.h"

#include <QObject>
#include <QRect>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

class QHelpEvent;
class QKeyEvent;
class QMouseEvent;
class QPointF;
class QWheelEvent;

namespace toolkit {

class ListLayout;
class PictureBox;

/// A cell of a list that is about to be drawn; a handler of `LinePrint` may change text and colour.
struct ListCell {
    int line;       ///< 0-based
    int column;     ///< 0-based
    QString text;   ///< as shown, unescaped; the list shortens what does not fit
    ColorRef color; ///< of the text
};

} // namespace toolkit

/// A list drawn by the program over a picture box: lines of "\"-separated columns under a clickable
/// header of the same columns, with a sub-header of facts and a scroller. Lines and columns are
/// numbered from 0. At most one line is selected; -1 stands for none. Line texts, keys and header
/// texts are plain; escape a "\" that is not a separator with `platform::EscapeSeparators`, which
/// is undone when a column is shown.
class c_PicList : public QObject {
    Q_OBJECT
public:
    c_PicList();
    ~c_PicList() override;

    /// Puts the list on `box`, with the box's size and font, and with the columns of `headers`
    /// ("First\Second\Third").
    void Create(toolkit::PictureBox* box, const QString& headers);

    /// Appends a line; shows with the next `Refresh`.
    void AddItem(const QString& text, const QString& key);
    void ClearLines();
    /// Removes a line. The selection stays on its line; if that is the one removed, the selection
    /// moves to the line that took its place, or to the last one.
    void RemoveLine(int line);
    /// Removes lines, which are in ascending order and must exist, in the same way.
    void RemoveLines(const std::vector<int>& lines);

    /// Redraws the list from the event loop, only once however often it is called before that; at
    /// most every 16 milliseconds, and not while the box is hidden.
    void Refresh();

    int LineCount() const;
    /// How often lines were removed or changed places.
    int Moves() const;
    /// The text and key of a line that does not exist are empty and cannot be set.
    QString LineText(int line) const;
    void SetLineText(int line, const QString& text);
    QString LineKey(int line) const;
    void SetLineKey(int line, const QString& key);

    int LineSelectedNum() const;
    /// Selects a line and scrolls to it, as a click does without modifier keys: `LineSelChanged` is
    /// raised. Nothing happens if there is no such line.
    void SelectLine(int line);
    /// Selects a line and does nothing else: the list does not scroll, and the keyboard cursor
    /// stays where it is.
    void MoveSelection(int line);
    /// The line with the keyboard cursor: the one that the player selected last, or moved to with
    /// Ctrl and the arrow keys. -1 if there is none.
    int CursorLine() const;

    /// Lets the owner say which lines are marked: these are chosen just like the selected one.
    void SetMarks(std::function<bool(int line)> isMarked);
    /// Whether a line is selected or marked.
    bool IsChosen(int line) const;
    std::vector<int> ChosenLines() const;

    /// Sorts the lines by a column, upwards with mode 0, downwards with mode 2: numbers by their
    /// value, letters as the locale sorts them, ignoring case. Equal lines keep their order, and
    /// the selection stays on its line. Returns the number that each line had before. A column that
    /// does not exist sorts nothing.
    std::vector<int> SortByHeader(int column, int mode);

    /// The same in two steps, for a column that exists: what finds out that order of the lines as
    /// they are now, on any thread, and what then puts them into it.
    std::function<std::vector<int>()> Sorter(int column, int mode) const;
    void PutSorted(int column, int mode, const std::vector<int>& order);

    /// Puts line `order[n]` at n. The selection stays on its line, and the list does not count as
    /// sorted afterwards.
    void Reorder(const std::vector<int>& order);

    /// Moves lines, keeping their order, to before the line `before`, or to the end if that is the
    /// number of lines. `lines` are in ascending order and must exist. The selection stays on its
    /// line. Returns the number that each line had before.
    std::vector<int> MoveLines(const std::vector<int>& lines, int before);

    /// The column that the list counts as sorted by; -1 if there is none.
    int SortedColumn() const;
    bool IsSortedDownwards() const;

    /// The first line from `from` on, downwards if `forward`, that holds `text` in one of its
    /// columns, ignoring case; -1 if there is none. The search wraps around, and `from` may be the
    /// number of lines, or -1.
    int FindText(const QString& text, int from, bool forward) const;

    /// Sets the text under the header, one piece for each column; the strip is hidden while it is
    /// empty.
    void SetSubHeader(const QString& text);

    int ColumnCount() const;
    /// In logical pixels. Widths of another number of columns, or too narrow ones, change nothing.
    std::vector<int> ColumnWidths() const;
    void SetColumnWidths(const std::vector<int>& widths);
    /// The texts as they are shown, unescaped; empty if there are none.
    QString HeaderText(int column) const;
    QString SubHeaderText(int column) const;
    QString CellText(int line, int column) const;

    /// The visible part of a cell, in logical pixels of the box; empty if none of it is visible.
    /// The header is line -1.
    QRect CellRect(int line, int column) const;
    /// The line and the column at a point of the box; -1 if there is none.
    int LineAt(const QPointF& point) const;
    int ColumnAt(const QPointF& point) const;

    /// Whether the range key (Shift) and the add-to-selection key (Ctrl) are held; true only while
    /// `LineSelChanged` is raised.
    bool mRangeKey = false;
    bool mAddKey = false;
    /// Whether the selection was moved with the keyboard; as above.
    bool mByKeyboard = false;

Q_SIGNALS:
    /// The player selected a line, possibly the one already selected.
    void LineSelChanged(int line);
    /// A line was double-clicked, or Enter was pressed on it.
    void LineDoubleClicked(int line);
    /// A menu for a line is wanted, at a place in logical pixels of the stage. Raised by the right
    /// button, which selects the line and keeps the marks if it is marked, or by the keyboard.
    void LineRightClicked(int line, QPoint place);
    /// The list was sorted by another column than before, or in the other direction. It counts as
    /// sorted until a line is appended or a line's text changes.
    void HeaderSelChanged(int column);
    void HeaderSelClicked(int column);
    void HeaderDoubleClicked(int column);
    void SubHeaderClicked(int column);
    /// The player has given columns other widths.
    void ColumnsResized();
    void SubHeaderChanged();
    /// A visible cell is about to be drawn. The handler must not change the lines.
    void LinePrint(toolkit::ListCell& cell);
    /// The chosen lines were dragged, or Alt was pressed with an arrow key: they are to be moved as
    /// by `MoveLines`.
    void LinesMoveWanted(const std::vector<int>& lines, int before);
    /// Delete or Ctrl+A was pressed.
    void RemoveWanted();
    void SelectAllWanted();

protected:
    bool eventFilter(QObject* box, QEvent* event) override;

private:
    struct State;

    bool Exists(int line) const;
    toolkit::ListLayout Layout() const;
    void AdjustScroller();
    void MoveBorder(int column, double x);
    void FitColumn(int column);
    void BringIntoSight(int line);
    void Choose(int line, Qt::KeyboardModifiers keys, bool byKeyboard);
    void MoveCursor(int line);
    void WantMenu(int line, QPointF place);
    void ForgetSorting();
    void TellReaders();
    void Draw();
    void DrawHeaders();
    void DrawLines();

    bool Key(const QKeyEvent& event);
    bool MoveKey(const QKeyEvent& event);
    bool MoveLinesKey(const QKeyEvent& event);
    bool Type(const QKeyEvent& event);
    bool MenuKey(const QKeyEvent& event);
    void Press(const QMouseEvent& event);
    void PressRight(QPointF place);
    void ShowWhole(const QHelpEvent& event);
    void DoublePress(const QMouseEvent& event);
    void PressLine(int line, const QMouseEvent& event);
    void Move(const QMouseEvent& event);
    void DragLinesTo(QPointF place);
    void ScrollDrag();
    std::vector<int> EndLineDrag();
    void WantLinesMoved(const std::vector<int>& lines, int before);
    void Release(const QMouseEvent& event);
    void Wheel(const QWheelEvent& event);
    void PointAt(const QPointF& point);
    void ForgetPointer();
    void ShowCursor();

    std::unique_ptr<State> mState;
};
