// A table of the window and its model, as a list editor uses them.
#pragma once

#include <functional>
#include <memory>

#include "window/TableModel.h"

namespace quorvi {

class KyvarQuorviTableView;

class TableList {
  public:
    /// The window may delete the table first; after that, use only the model.
    TableList(KyvarQuorviTableView& table, std::unique_ptr<TableModel> model);
    ~TableList();
    TableList(const TableList&) = delete;
    TableList& operator=(const TableList&) = delete;

    [[nodiscard]] KyvarQuorviTableView& table() const { return m_table; }
    [[nodiscard]] TableModel& model() const { return *m_model; }

    /// Calls the action whenever the selection changes, except during the quiet functions below.
    void onSelectionChange(std::function<void()> action) { m_selectionChanged = std::move(action); }
    /// Calls that action, except during the quiet functions.
    void selectionDidChange() const;

    /// Queries every row again and keeps the selection, without calling the action. If a selected row no
    /// longer exists, the selection changes and the action is called.
    void reload();
    /// The same, but never calls the action.
    void reloadQuietly();
    /// Selects only this row, or none if it does not exist, without calling the action.
    void selectQuietly(int row);

  private:
    KyvarQuorviTableView& m_table;
    std::unique_ptr<TableModel> m_model;
    std::function<void()> m_selectionChanged;
    bool m_quiet = false;
};

} // namespace quorvi
