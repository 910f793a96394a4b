// The keys of a table of the panel that do more than those of any other.
#pragma once

#include <QModelIndex>

class QKeyEvent;

namespace quorvi {

class KyvarQuorviTableView;

/// F2 edits the selected row, Space toggles its check box, Shift with F10 opens the menu, and a key that
/// moves in the list selects a row when none is.
class TableKeys {
  public:
    /// Part of the table, which outlives it.
    explicit TableKeys(KyvarQuorviTableView& table) : m_table(table) {}

    /// Does what the key stands for; false when that is nothing of the above.
    [[nodiscard]] bool pressed(const QKeyEvent& event);
    /// Opens the table's menu for the selected row.
    void openMenu();

  private:
    /// Edits the row's name, whichever of its cells was clicked last; false when it has none to edit.
    bool editSelectedRow();
    /// Clicks the row's check box, whichever of its cells is current; false when it has none.
    bool toggleSelectedRow();
    /// The first cell of the selected row with the flag; invalid when there is none.
    [[nodiscard]] QModelIndex cellOfSelectedRow(Qt::ItemFlag flag) const;
    /// While no row is selected, a key that moves in the list selects the row that is current, from which it
    /// would move otherwise: a list of one row could not be used. False when there is nothing to do.
    bool selectCurrentRow(int key);

    KyvarQuorviTableView& m_table;
};

} // namespace quorvi
