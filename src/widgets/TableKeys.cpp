#include "widgets/TableKeys.h"

#include <QKeyEvent>
#include <QMenu>

#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuItems.h"

namespace quorvi {

bool TableKeys::pressed(const QKeyEvent& event) {
    if (event.key() == Qt::Key_F2 && editSelectedRow())
        return true;
    if (event.key() == Qt::Key_Space && toggleSelectedRow())
        return true;
    if (selectCurrentRow(event.key()))
        return true;
    if (!keyOpensContextMenu(event))
        return false;
    openMenu();
    return true;
}

void TableKeys::openMenu() {
    QMenu* menu = m_table.menu();
    if (!m_table.isEnabled() || !menu)
        return;
    const QModelIndex row = m_table.model()->index(m_table.selectedRow(), 0);
    m_table.scrollTo(row);
    menu->popup(positionOfMenu(*menu, *m_table.viewport(), m_table.visualRect(row)));
    activateFirstItem(*menu);
}

bool TableKeys::editSelectedRow() {
    const QModelIndex cell = cellOfSelectedRow(Qt::ItemIsEditable);
    return cell.isValid() && m_table.edit(cell, QAbstractItemView::EditKeyPressed, nullptr);
}

bool TableKeys::toggleSelectedRow() {
    return m_table.toggleCell(cellOfSelectedRow(Qt::ItemIsUserCheckable));
}

QModelIndex TableKeys::cellOfSelectedRow(Qt::ItemFlag flag) const {
    const int row = m_table.selectedRow();
    for (int column = 0; row >= 0 && column < m_table.model()->columnCount(); ++column) {
        const QModelIndex cell = m_table.model()->index(row, column);
        if (cell.flags() & flag)
            return cell;
    }
    return {};
}

bool TableKeys::selectCurrentRow(int key) {
    const bool moves = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
                       key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End;
    const QModelIndex current = m_table.currentIndex();
    if (!moves || m_table.selectedRow() >= 0 || !current.isValid())
        return false;
    m_table.selectRowAlone(current.row());
    return true;
}

} // namespace quorvi
