#include "widgets/AccessibleCell.h"

#include <QHeaderView>

#include <algorithm>

#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

namespace {

QRect onScreen(const QWidget& widget, const QRect& rectangle) {
    return {widget.mapToGlobal(rectangle.topLeft()), rectangle.size()};
}

} // namespace

AccessibleTablePart::AccessibleTablePart(KyvarQuorviTableView& table)
    : AccessiblePart(table), m_table(&table) {}

// A column's title

AccessibleColumnTitle::AccessibleColumnTitle(KyvarQuorviTableView& table, int column)
    : AccessibleTablePart(table), m_column(column) {}

bool AccessibleColumnTitle::isValid() const {
    return m_table && m_table->model() && m_column < m_table->model()->columnCount();
}

QString AccessibleColumnTitle::text(QAccessible::Text kind) const {
    const int role = kind == QAccessible::Name ? Qt::DisplayRole : Qt::ToolTipRole;
    const bool told = isValid() && (kind == QAccessible::Name || kind == QAccessible::Description);
    return told ? m_table->model()->headerData(m_column, Qt::Horizontal, role).toString() : QString();
}

QRect AccessibleColumnTitle::rect() const {
    const QHeaderView& header = *m_table->horizontalHeader();
    return onScreen(*header.viewport(),
        QRect(header.sectionViewportPosition(m_column), 0, header.sectionSize(m_column), header.height()));
}

QAccessible::State AccessibleColumnTitle::state() const {
    QAccessible::State state;
    state.invisible = !m_table->isVisible();
    state.disabled = !m_table->isEnabled();
    return state;
}

// A cell

AccessibleCell::AccessibleCell(KyvarQuorviTableView& table, const QModelIndex& cell)
    : AccessibleTablePart(table), m_cell(cell) {}

bool AccessibleCell::isValid() const {
    return m_table && m_cell.isValid();
}

void* AccessibleCell::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QWidget* AccessibleCell::editor() const {
    return isValid() ? m_table->indexWidget(m_cell) : nullptr;
}

int AccessibleCell::childCount() const {
    return editor() ? 1 : 0;
}

QAccessibleInterface* AccessibleCell::child(int index) const {
    return index == 0 && editor() ? QAccessible::queryAccessibleInterface(editor()) : nullptr;
}

int AccessibleCell::indexOfChild(const QAccessibleInterface* child) const {
    return editor() && child && child->object() == editor() ? 0 : -1;
}

QString AccessibleCell::text(QAccessible::Text kind) const {
    if (!isValid() || (kind != QAccessible::Name && kind != QAccessible::Description))
        return {};
    if (kind == QAccessible::Description)
        return m_cell.data(Qt::ToolTipRole).toString();
    const QString spoken = m_cell.data(Qt::AccessibleTextRole).toString();
    return spoken.isEmpty() ? m_cell.data(Qt::DisplayRole).toString() : spoken;
}

QRect AccessibleCell::rect() const {
    return onScreen(*m_table->viewport(), m_table->visualRect(m_cell));
}

bool AccessibleCell::isSelected() const {
    return isValid() && std::ranges::binary_search(m_table->selectedRows(), m_cell.row());
}

QAccessible::State AccessibleCell::state() const {
    QAccessible::State state;
    if (!isValid())
        return state;
    const Qt::ItemFlags flags = m_cell.flags();
    const bool inView = m_table->viewport()->rect().intersects(m_table->visualRect(m_cell));
    state.invisible = !m_table->isVisible() || !inView;
    state.disabled = !m_table->isEnabled() || !(flags & Qt::ItemIsEnabled);
    state.selectable = state.focusable = !state.disabled;
    state.selected = isSelected();
    state.focused = m_table->hasFocus() && m_table->currentIndex() == m_cell;
    state.editable = flags.testFlag(Qt::ItemIsEditable);
    state.checkable = flags.testFlag(Qt::ItemIsUserCheckable);
    state.checked = state.checkable && m_cell.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    state.hasPopup = m_table->isPopUp(m_cell);
    return state;
}

QList<QAccessibleInterface*> AccessibleCell::columnHeaderCells() const {
    QAccessibleInterface* const all = parent();
    return all && isValid() ? QList<QAccessibleInterface*>{all->child(m_cell.column())}
                            : QList<QAccessibleInterface*>();
}

QStringList AccessibleCell::actionNames() const {
    if (!isValid())
        return {};
    QStringList names{toggleAction()};
    if (m_cell.flags() & Qt::ItemIsEditable)
        names << pressAction();
    if (m_table->isPopUp(m_cell))
        names << showMenuAction();
    return names;
}

// Each may reload the list, which destroys this object with its cell.
void AccessibleCell::doAction(const QString& action) {
    if (!isValid() || state().disabled)
        return;
    const QPointer<KyvarQuorviTableView> table = m_table;
    const QPersistentModelIndex cell = m_cell;
    if (action == toggleAction() && (cell.flags() & Qt::ItemIsUserCheckable)) {
        table->toggleCell(cell);
        return;
    }
    table->selectRowAlone(cell.row());
    if (!table || !cell.isValid())
        return;
    if (action == pressAction())
        table->editCell(cell.column(), cell.row());
    else if (action == showMenuAction())
        table->openMenuOf(cell);
}

} // namespace quorvi
