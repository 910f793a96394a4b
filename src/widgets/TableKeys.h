// The additional keys of the panel's tables.
#pragma once

#include <QModelIndex>

class QKeyEvent;

namespace quorvi {

class KyvarQuorviTableView;

/// F2 edits the selected row, Space toggles its check box, Shift with F10 opens the menu, and a navigation
/// key selects a row if none is selected.
class TableKeys {
  public:
    /// Part of the table, which outlives it.
    explicit TableKeys(KyvarQuorviTableView& table) : m_table(table) {}

    /// Performs the key's function; returns false if it has none of the above.
    [[nodiscard]] bool pressed(const QKeyEvent& event);
    /// Opens the table's menu for the selected row.
    void openMenu();

  private:
    /// Edits the row's name, whichever cell was clicked last; returns false if it has none to edit.
    bool editSelectedRow();
    /// Clicks the row's check box, whichever cell is current; returns false if it has none.
    bool toggleSelectedRow();
    /// The first cell of the selected row with the flag; invalid if there is none.
    [[nodiscard]] QModelIndex cellOfSelectedRow(Qt::ItemFlag flag) const;
    /// If no row is selected, a navigation key selects the current row instead of moving away from it:
    /// otherwise a list with one row could not be used. Returns false if there is nothing to do.
    bool selectCurrentRow(int key);

    KyvarQuorviTableView& m_table;
};

} // namespace quorvi
