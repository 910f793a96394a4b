#include "widgets/AccessibleTable.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "widgets/AccessibleCell.h"
#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

AccessibleTable::AccessibleTable(KyvarQuorviTableView* table)
    : QAccessibleWidget(table, QAccessible::Table) {}

AccessibleTable::~AccessibleTable() {
    forgetChildren();
}

void AccessibleTable::forgetChildren() {
    for (const QAccessible::Id id : std::as_const(m_children))
        QAccessible::deleteAccessibleInterface(id);
    m_children.clear();
}

KyvarQuorviTableView& AccessibleTable::table() const {
    auto& table = static_cast<KyvarQuorviTableView&>(*widget());
    table.completeModel(); // screen readers also read pages that are not open yet
    return table;
}

void* AccessibleTable::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

int AccessibleTable::rowCount() const {
    return table().model() ? table().model()->rowCount() : 0;
}

int AccessibleTable::columnCount() const {
    return table().model() ? table().model()->columnCount() : 0;
}

int AccessibleTable::childCount() const {
    return (1 + rowCount()) * columnCount();
}

QAccessibleInterface* AccessibleTable::child(int index) const {
    if (index < 0 || index >= childCount())
        return nullptr;
    if (const QAccessible::Id known = m_children.value(index))
        return QAccessible::accessibleInterface(known);
    const int row = index / columnCount() - 1;
    const int column = index % columnCount();
    // From here on the toolkit owns them.
    QAccessibleInterface* child = nullptr;
    if (row < 0)
        child = std::make_unique<AccessibleColumnTitle>(table(), column).release();
    else
        child = std::make_unique<AccessibleCell>(table(), table().model()->index(row, column)).release();
    m_children.insert(index, QAccessible::registerAccessibleInterface(child));
    return child;
}

int AccessibleTable::indexOfChild(const QAccessibleInterface* child) const {
    return m_children.key(QAccessible::uniqueId(const_cast<QAccessibleInterface*>(child)), -1);
}

QAccessibleInterface* AccessibleTable::childAt(int x, int y) const {
    const QModelIndex cell = table().indexAt(table().viewport()->mapFromGlobal(QPoint(x, y)));
    return cell.isValid() ? cellAt(cell.row(), cell.column()) : nullptr;
}

QAccessibleInterface* AccessibleTable::focusChild() const {
    const QModelIndex cell = table().currentIndex();
    return table().hasFocus() && cell.isValid() ? cellAt(cell.row(), cell.column())
                                                : QAccessibleWidget::focusChild();
}

QAccessibleInterface* AccessibleTable::cellAt(int row, int column) const {
    const bool exists = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return exists ? child((1 + row) * columnCount() + column) : nullptr;
}

QString AccessibleTable::columnDescription(int column) const {
    return table().model() ? table().model()->headerData(column, Qt::Horizontal).toString() : QString();
}

QString AccessibleTable::rowDescription(int row) const {
    return table().areRowsNumbered() && row >= 0 && row < rowCount() ? QString::number(row + 1) : QString();
}

QList<int> AccessibleTable::selectedRows() const {
    QList<int> rows;
    for (const int row : table().selectedRows())
        if (row < rowCount())
            rows.append(row);
    return rows;
}

int AccessibleTable::selectedRowCount() const {
    return int(selectedRows().size());
}

bool AccessibleTable::isRowSelected(int row) const {
    return selectedRows().contains(row);
}

int AccessibleTable::selectedCellCount() const {
    return selectedRowCount() * columnCount();
}

QList<QAccessibleInterface*> AccessibleTable::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows())
        for (int column = 0; column < columnCount(); ++column)
            cells.append(cellAt(row, column));
    return cells;
}

bool AccessibleTable::selectRow(int row) {
    if (!table().isEnabled() || row < 0 || row >= rowCount())
        return false;
    std::vector<int> rows{row};
    if (table().isSeveralSelectable())
        std::ranges::copy(table().selectedRows(), std::back_inserter(rows));
    table().selectRows(rows, row);
    return true;
}

bool AccessibleTable::unselectRow(int row) {
    if (!table().isEnabled() || !table().isSeveralSelectable() || !isRowSelected(row))
        return false;
    std::vector<int> rows = table().selectedRows();
    rows.erase(std::ranges::find(rows, row));
    table().selectRows(rows, table().selectedRow());
    return true;
}

QAccessible::State AccessibleTable::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.multiSelectable = table().isSeveralSelectable();
    return state;
}

// Lists are always reloaded as a whole.
void AccessibleTable::modelChange(QAccessibleTableModelChangeEvent* event) {
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged)
        forgetChildren();
}

void tellOfCell(KyvarQuorviTableView& table, const QModelIndex& cell, QAccessible::Event what) {
    QAccessibleInterface* told =
        QAccessible::isActive() ? QAccessible::queryAccessibleInterface(&table) : nullptr;
    if (!told || !told->tableInterface() || !cell.isValid())
        return;
    if (QAccessibleInterface* part = told->tableInterface()->cellAt(cell.row(), cell.column())) {
        QAccessibleEvent event(part, what);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace quorvi
