#include "toolkit/ListAccessible.h"

#include "toolkit/PictureBox.h"
#include "toolkit/c_PicList.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <map>

namespace toolkit {

namespace {

int CellIndex(int line, int column, const c_PicList& list) {
    return (line + 1) * list.ColumnCount() + column;
}

/// The cell at one place of the table, whatever line is there at the time; line -1 is the header.
class AccessibleCell : public QAccessibleInterface,
                       public QAccessibleTableCellInterface,
                       public QAccessibleActionInterface {
public:
    AccessibleCell(PictureBox* box, c_PicList* list, int line, int column)
        : mBox(box), mList(list), mLine(line), mColumn(column) {}

    bool isValid() const override {
        return mBox && mList && mLine < mList->LineCount() && mColumn < mList->ColumnCount();
    }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return table()->window(); }
    QAccessibleInterface* parent() const override { return table(); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QAccessible::Role role() const override {
        return IsHeader() ? QAccessible::ColumnHeader : QAccessible::Cell;
    }

    QRect rect() const override {
        const QRect cell = isValid() ? mList->CellRect(mLine, mColumn) : QRect();
        const QRect shown = FromLogical(cell);
        return cell.isEmpty() ? QRect() : QRect(mBox->mapToGlobal(shown.topLeft()), shown.size());
    }

    QString text(QAccessible::Text kind) const override {
        if (!isValid())
            return QString();
        if (kind == QAccessible::Name)
            return IsHeader() ? mList->HeaderText(mColumn) : mList->CellText(mLine, mColumn);
        return kind == QAccessible::Description && IsHeader() ? HeaderFacts() : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.invisible = !mBox->isVisible();
        state.disabled = !mBox->isEnabled();
        if (IsHeader())
            return state;
        state.focusable = state.selectable = true;
        state.selected = isSelected();
        state.focused = mLine == mList->CursorLine() && mColumn == 0 && mBox->hasFocus();
        state.offscreen = mList->CellRect(mLine, mColumn).isEmpty();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableCellInterface && !IsHeader())
            return static_cast<QAccessibleTableCellInterface*>(this);
        if (type == QAccessible::ActionInterface)
            return static_cast<QAccessibleActionInterface*>(this);
        return nullptr;
    }

    bool isSelected() const override { return isValid() && mList->IsChosen(mLine); }
    QList<QAccessibleInterface*> columnHeaderCells() const override {
        return {table()->child(mColumn)};
    }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return mColumn; }
    int rowIndex() const override { return mLine; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override {
        return QAccessible::queryAccessibleInterface(mBox);
    }

    QStringList actionNames() const override {
        return IsHeader() ? QStringList{pressAction()}
                          : QStringList{setFocusAction(), pressAction()};
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void doAction(const QString& action) override {
        if (!isValid() || !mBox->TakesInput())
            return;
        if (IsHeader() && action == pressAction())
            Q_EMIT mList->HeaderSelClicked(mColumn);
        if (IsHeader())
            return;
        mList->SelectLine(mLine);
        if (action == pressAction())
            OpenLine();
    }

private:
    bool IsHeader() const { return mLine < 0; }

    QString HeaderFacts() const {
        QStringList facts = {mList->SubHeaderText(mColumn)};
        if (mColumn == mList->SortedColumn())
            facts << (mList->IsSortedDownwards() ? QStringLiteral("sorted descending")
                                                 : QStringLiteral("sorted ascending"));
        facts.removeAll(QString());
        return facts.join(QStringLiteral(", "));
    }

    /// Queued, because the screen reader waits for the call to return, and a dialog may open.
    void OpenLine() const {
        const auto open = [box = mBox, list = mList, line = mLine] {
            if (box && box->TakesInput() && line < list->LineCount())
                Q_EMIT list->LineDoubleClicked(line);
        };
        QMetaObject::invokeMethod(mList, open, Qt::QueuedConnection);
    }

    QPointer<PictureBox> mBox;
    QPointer<c_PicList> mList;
    int mLine;
    int mColumn;
};

/// The table of a list. Its children are the cells of the header and then those of the lines,
/// created on demand.
class AccessibleList : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    AccessibleList(PictureBox* box, c_PicList* list)
        : QAccessibleWidget(box, QAccessible::Table), mList(list) {}

    bool isValid() const override { return mList && QAccessibleWidget::isValid(); }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableInterface)
            return static_cast<QAccessibleTableInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    int childCount() const override { return mList ? CellIndex(rowCount(), 0, *mList) : 0; }

    QAccessibleInterface* child(int index) const override {
        const int columns = columnCount();
        if (index < 0 || index >= childCount() || columns == 0)
            return nullptr;
        const auto known = mCells.find(index);
        if (known != mCells.end())
            return QAccessible::accessibleInterface(known->second);
        auto* cell = new AccessibleCell(static_cast<PictureBox*>(widget()), mList,
                                        index / columns - 1, index % columns);
        mCells[index] = QAccessible::registerAccessibleInterface(cell);
        return cell;
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* cell = dynamic_cast<const AccessibleCell*>(child);
        return cell != nullptr && mList ? CellIndex(cell->rowIndex(), cell->columnIndex(), *mList)
                                        : -1;
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        const QPointF at = ToLogical(widget()->mapFromGlobal(QPoint(x, y)));
        const int column = mList ? mList->ColumnAt(at) : -1;
        if (column < 0)
            return nullptr;
        const int line = mList->LineAt(at);
        if (line >= 0)
            return cellAt(line, column);
        return mList->CellRect(-1, column).contains(at.toPoint()) ? child(column) : nullptr;
    }

    QAccessibleInterface* focusChild() const override {
        return widget()->hasFocus() && mList ? cellAt(mList->CursorLine(), 0) : nullptr;
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override {
        const bool exists = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
        return exists ? child(CellIndex(row, column, *mList)) : nullptr;
    }
    int rowCount() const override { return mList ? mList->LineCount() : 0; }
    int columnCount() const override { return mList ? mList->ColumnCount() : 0; }
    QString columnDescription(int column) const override {
        return mList ? mList->HeaderText(column) : QString();
    }
    QString rowDescription(int row) const override {
        if (row < 0 || row >= rowCount())
            return QString();
        QStringList texts;
        for (int column = 0; column < columnCount(); ++column)
            texts << mList->CellText(row, column);
        texts.removeAll(QString());
        return texts.join(QStringLiteral(", "));
    }

    QList<int> selectedRows() const override {
        const std::vector<int> lines = mList ? mList->ChosenLines() : std::vector<int>();
        return {lines.begin(), lines.end()};
    }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    bool isRowSelected(int row) const override { return mList && mList->IsChosen(row); }
    QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> cells;
        for (const int row : selectedRows())
            for (int column = 0; column < columnCount(); ++column)
                cells << cellAt(row, column);
        return cells;
    }
    int selectedCellCount() const override { return selectedRowCount() * columnCount(); }
    bool selectRow(int row) override {
        if (row < 0 || row >= rowCount())
            return false;
        mList->SelectLine(row);
        return true;
    }
    bool unselectRow(int) override { return false; }
    QList<int> selectedColumns() const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    bool isColumnSelected(int) const override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectColumn(int) override { return false; }

    // A cell stands for its place and looks up its text, so no change makes one invalid.
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

    /// Tells that the cells which screen readers know have other texts.
    void RenameCells() const {
        for (const auto& [index, id] : mCells) {
            QAccessibleInterface* cell = QAccessible::accessibleInterface(id);
            if (!cell->isValid())
                continue;
            QAccessibleEvent event(cell, QAccessible::NameChanged);
            QAccessible::updateAccessibility(&event);
        }
    }

protected:
    ~AccessibleList() override {
        for (const auto& [index, id] : mCells)
            QAccessible::deleteAccessibleInterface(id);
    }

private:
    QPointer<c_PicList> mList;
    mutable std::map<int, QAccessible::Id> mCells;
};

} // namespace

void MakeListAccessible(PictureBox* box, c_PicList* list) {
    box->SetInterface([box, list] { return new AccessibleList(box, list); });
    // A screen reader that runs may have come to know the box before it became a list.
    QAccessible::deleteAccessibleInterface(
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(box)));
    QObject::connect(list, &QObject::destroyed, box, [box] { box->SetInterface({}); });
}

void AnnounceCursor(PictureBox* box, const c_PicList& list) {
    if (!QAccessible::isActive() || box == nullptr || list.CursorLine() < 0)
        return;
    const int cell = CellIndex(list.CursorLine(), 0, list);
    for (const QAccessible::Event kind : {QAccessible::Focus, QAccessible::Selection}) {
        if (kind == QAccessible::Focus && !box->hasFocus())
            continue;
        QAccessibleEvent event(box, kind);
        event.setChild(cell);
        QAccessible::updateAccessibility(&event);
    }
}

void AnnounceLineCount(PictureBox& box) {
    if (!QAccessible::isActive())
        return;
    QAccessibleTableModelChangeEvent event(&box, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&event);
}

void AnnounceLines(PictureBox& box) {
    if (!QAccessible::isActive())
        return;
    if (const auto* list =
            dynamic_cast<AccessibleList*>(QAccessible::queryAccessibleInterface(&box)))
        list->RenameCells();
}

} // namespace toolkit
