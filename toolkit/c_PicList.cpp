#include "toolkit/c_PicList.h"

#include "toolkit/HumanOrder.h"
#include "toolkit/ListAccessible.h"
#include "toolkit/TextSearch.h"
#include "toolkit/c_PicListState.h"

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace toolkit;

namespace {

constexpr int kFrameTime = 16; // milliseconds; screens show no more frames than that

} // namespace

c_PicList::c_PicList() : mState(std::make_unique<State>()) {
    mState->drawTimer.setSingleShot(true);
    mState->drawTimer.setTimerType(Qt::PreciseTimer);
    connect(&mState->drawTimer, &QTimer::timeout, this, [this] {
        if (mState->box)
            mState->box->Refresh();
    });
    constexpr int kScrollTime = 50; // milliseconds
    mState->dragScroll.setInterval(kScrollTime);
    connect(&mState->dragScroll, &QTimer::timeout, this, &c_PicList::ScrollDrag);
}

c_PicList::~c_PicList() = default;

void c_PicList::Create(PictureBox* box, const QString& headers) {
    mState->box = box;
    mState->headers = headers;
    mState->columns = ListColumns(static_cast<int>(headers.count(u'\\')) + 1);
    mState->scroller.LoadSkin();
    box->setFocusPolicy(Qt::StrongFocus);
    box->installEventFilter(this);
    MakeListAccessible(box, this);
    Refresh();
}

void c_PicList::AddItem(const QString& text, const QString& key) {
    mState->lines.Add(text, key);
    ForgetSorting();
}

void c_PicList::ClearLines() {
    EndLineDrag();
    ++mState->moves;
    mState->lines.Clear();
    mState->selected = mState->cursor = -1;
    mState->scroller.SetTop(0);
    ForgetSorting();
}

void c_PicList::RemoveLine(int line) {
    if (Exists(line))
        RemoveLines({line});
}

void c_PicList::RemoveLines(const std::vector<int>& lines) {
    if (lines.empty())
        return;
    EndLineDrag();
    ++mState->moves;
    mState->lines.Remove(lines);
    for (int* number : {&mState->selected, &mState->cursor}) {
        const auto before = std::ranges::lower_bound(lines, *number) - lines.begin();
        *number = std::min(*number - static_cast<int>(before), LineCount() - 1);
    }
    mState->linesChanged = true;
}

void c_PicList::Refresh() {
    if (!mState->box)
        return;
    mState->dirty = true;
    const qint64 since = mState->sinceDrawn.isValid() ? mState->sinceDrawn.elapsed() : kFrameTime;
    if (since >= kFrameTime)
        mState->box->Refresh();
    else if (!mState->drawTimer.isActive())
        mState->drawTimer.start(static_cast<int>(kFrameTime - since));
}

int c_PicList::LineCount() const { return mState->lines.Count(); }

int c_PicList::Moves() const { return mState->moves; }

bool c_PicList::Exists(int line) const { return line >= 0 && line < LineCount(); }

QString c_PicList::LineText(int line) const {
    return Exists(line) ? mState->lines.Text(line) : QString();
}

void c_PicList::SetLineText(int line, const QString& text) {
    if (!Exists(line) || LineText(line) == text)
        return;
    mState->lines.SetText(line, text);
    ForgetSorting();
    mState->linesChanged = true;
}

QString c_PicList::LineKey(int line) const {
    return Exists(line) ? mState->lines.Key(line) : QString();
}

void c_PicList::SetLineKey(int line, const QString& key) {
    if (Exists(line))
        mState->lines.SetKey(line, key);
}

int c_PicList::LineSelectedNum() const { return mState->selected; }

void c_PicList::SelectLine(int line) { Choose(line, Qt::NoModifier, false); }

void c_PicList::Choose(int line, Qt::KeyboardModifiers keys, bool byKeyboard) {
    if (!Exists(line))
        return;
    mState->selected = mState->cursor = line;
    BringIntoSight(line);
    Refresh();
    mRangeKey = keys.testFlag(Qt::ShiftModifier);
    mAddKey = keys.testFlag(Qt::ControlModifier);
    mByKeyboard = byKeyboard;
    Q_EMIT LineSelChanged(line);
    mRangeKey = mAddKey = mByKeyboard = false;
    AnnounceCursor(mState->box, *this);
}

void c_PicList::MoveSelection(int line) {
    if (!Exists(line))
        return;
    mState->selected = line;
    Refresh();
}

int c_PicList::CursorLine() const { return mState->cursor; }

void c_PicList::MoveCursor(int line) {
    if (!Exists(line))
        return;
    mState->cursor = line;
    BringIntoSight(line);
    Refresh();
    AnnounceCursor(mState->box, *this);
}

void c_PicList::SetMarks(std::function<bool(int)> isMarked) {
    mState->isMarked = std::move(isMarked);
}

bool c_PicList::IsChosen(int line) const {
    return Exists(line) && (line == mState->selected || mState->isMarked(line));
}

std::vector<int> c_PicList::ChosenLines() const {
    std::vector<int> lines;
    for (int line = 0; line < LineCount(); ++line)
        if (IsChosen(line))
            lines.push_back(line);
    return lines;
}

std::vector<int> c_PicList::SortByHeader(int column, int mode) {
    const std::vector<int> order = Sorter(column, mode)();
    if (column >= 0 && column < ColumnCount())
        PutSorted(column, mode, order);
    return order;
}

std::function<std::vector<int>()> c_PicList::Sorter(int column, int mode) const {
    return [texts = mState->lines.Texts(), column, mode] {
        const auto text = [&](int line) {
            return ShownColumn(texts[static_cast<std::size_t>(line)].Unpacked(), column);
        };
        return HumanOrder(static_cast<int>(texts.size()), text, mode == 2);
    };
}

void c_PicList::PutSorted(int column, int mode, const std::vector<int>& order) {
    const bool downwards = mode == 2;
    const bool changed = column != mState->sortedColumn || downwards != mState->downwards;
    Reorder(order);
    mState->sortedColumn = column;
    mState->downwards = downwards;
    if (changed)
        Q_EMIT HeaderSelChanged(column);
}

std::vector<int> c_PicList::MoveLines(const std::vector<int>& lines, int before) {
    std::vector<int> order(static_cast<std::size_t>(LineCount()));
    std::iota(order.begin(), order.end(), 0);
    const auto rest = std::stable_partition(order.begin(), order.end(), [&](int line) {
        return !std::ranges::binary_search(lines, line);
    });
    const auto place = std::ranges::lower_bound(order.begin(), rest, before);
    std::rotate(place, rest, order.end());
    Reorder(order);
    return order;
}

void c_PicList::Reorder(const std::vector<int>& order) {
    EndLineDrag();
    ++mState->moves;
    const bool inSight = !CellRect(mState->selected, 0).isEmpty();
    mState->lines.Reorder(order);
    for (int* number : {&mState->selected, &mState->cursor})
        if (*number >= 0)
            *number = static_cast<int>(std::ranges::find(order, *number) - order.begin());
    if (inSight)
        BringIntoSight(mState->selected);
    mState->linesChanged = true;
    ForgetSorting();
    Refresh();
}

int c_PicList::SortedColumn() const { return mState->sortedColumn; }

bool c_PicList::IsSortedDownwards() const { return mState->downwards; }

int c_PicList::FindText(const QString& text, int from, bool forward) const {
    const TextSearch search(text);
    const int count = LineCount();
    for (int i = 0; i < count; ++i) {
        const int line = ((forward ? from + i : from - i) % count + count) % count;
        if (search.FindsIn(mState->lines.Text(line)))
            return line;
    }
    return -1;
}

void c_PicList::ForgetSorting() { mState->sortedColumn = -1; }

void c_PicList::SetSubHeader(const QString& text) {
    if (std::exchange(mState->subHeader, text) == text)
        return;
    Refresh();
    Q_EMIT SubHeaderChanged();
}

int c_PicList::ColumnCount() const { return mState->columns.Count(); }

std::vector<int> c_PicList::ColumnWidths() const {
    return mState->box ? mState->columns.Widths(Layout().Lines().width()) : std::vector<int>();
}

void c_PicList::SetColumnWidths(const std::vector<int>& widths) {
    mState->columns.SetWidths(widths);
    Refresh();
}

void c_PicList::MoveBorder(int column, double x) {
    const QRect lines = Layout().Lines();
    mState->columns.MoveBorder(column, static_cast<int>(std::lround(x - lines.x())), lines.width());
    Refresh();
}

void c_PicList::FitColumn(int column) {
    const ListLayout layout = Layout();
    const int end =
        std::min(layout.LineAt(layout.Lines().bottom(), mState->scroller.Top()) + 1, LineCount());
    double widest = 0;
    for (int line = layout.LineAt(layout.Lines().y(), mState->scroller.Top()); line < end; ++line)
        widest = std::max(widest, mState->box->Picture().TextWidth(CellText(line, column)));
    MoveBorder(column, layout.HeaderCell(column).x() + std::ceil(widest) + 2 * ListLayout::kMargin);
    Q_EMIT ColumnsResized();
}

QString c_PicList::HeaderText(int column) const { return ShownColumn(mState->headers, column); }

QString c_PicList::SubHeaderText(int column) const {
    return ShownColumn(mState->subHeader, column);
}

QString c_PicList::CellText(int line, int column) const {
    return ShownColumn(LineText(line), column);
}

ListLayout c_PicList::Layout() const {
    return ListLayout(mState->box->Place().size(), mState->box->Picture().TextHeight(),
                      mState->columns, !mState->subHeader.isEmpty(), mState->scroller.Width());
}

QRect c_PicList::CellRect(int line, int column) const {
    if (!mState->box || line >= LineCount() || column < 0 || column >= ColumnCount())
        return QRect();
    const ListLayout layout = Layout();
    if (line < 0)
        return layout.HeaderCell(column);
    return layout.LineCell(line, column, mState->scroller.Top()) & layout.Lines();
}

int c_PicList::LineAt(const QPointF& point) const {
    if (!mState->box || Layout().At(point).part != ListLayout::Part::Lines)
        return -1;
    const int line = Layout().LineAt(point.y(), mState->scroller.Top());
    return line < LineCount() ? line : -1;
}

int c_PicList::ColumnAt(const QPointF& point) const {
    return mState->box ? Layout().At(point).column : -1;
}

void c_PicList::AdjustScroller() {
    const ListLayout layout = Layout();
    mState->scroller.SetRange(layout.Scroller(), LineCount() * layout.LineHeight(),
                              layout.Lines().height());
}

void c_PicList::BringIntoSight(int line) {
    if (!mState->box)
        return;
    AdjustScroller();
    const ListLayout layout = Layout();
    const int top = line * layout.LineHeight();
    const int end = top + layout.LineHeight() - layout.Lines().height();
    mState->scroller.SetTop(std::min(std::max(mState->scroller.Top(), end), top));
}
