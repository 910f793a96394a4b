// A table of the window together with its rows: what a list editor holds of them.
#pragma once

#include <functional>
#include <memory>

#include "window/TableModel.h"

namespace quorvi {

class KyvarQuorviTableView;

class TableList {
  public:
    /// The table may go before, with the window; then only the model may be asked for anything.
    TableList(KyvarQuorviTableView& table, std::unique_ptr<TableModel> model);
    ~TableList();
    TableList(const TableList&) = delete;
    TableList& operator=(const TableList&) = delete;

    [[nodiscard]] KyvarQuorviTableView& table() const { return m_table; }
    [[nodiscard]] TableModel& model() const { return *m_model; }

    /// Has that called when other rows are selected, or none, but not while the program itself selects
    /// quietly.
    void onSelectionChange(std::function<void()> action) { m_selectionChanged = std::move(action); }
    /// Calls it now, unless that is to be quiet.
    void selectionDidChange() const;

    /// Asks for every row anew. The selection stays, and nobody hears of anything; but when a selected row is
    /// gone, it is not selected any more, which is a change of the selection.
    void reload();
    /// The same, also when a selected row is gone.
    void reloadQuietly();
    /// Selects the row alone, none for one that does not exist, and nobody hears of it.
    void selectQuietly(int row);

  private:
    KyvarQuorviTableView& m_table;
    std::unique_ptr<TableModel> m_model;
    std::function<void()> m_selectionChanged;
    bool m_quiet = false;
};

} // namespace quorvi
