// A table of the panel, for assistive programs.
#pragma once

#include <QAccessibleWidget>
#include <QHash>

namespace quorvi {

class KyvarQuorviTableView;

/// Its children are the column titles and then the cells, row by row. (QTableView's interface lists invisible
/// row headers, and does not support check boxes, pop-ups and editing in cells.)
class AccessibleTable : public QAccessibleWidget, public QAccessibleTableInterface {
  public:
    explicit AccessibleTable(KyvarQuorviTableView* table);
    ~AccessibleTable() override;

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
    [[nodiscard]] int selectedCellCount() const override;
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;
    [[nodiscard]] QString columnDescription(int column) const override;
    /// The row's number, if the rows are numbered.
    [[nodiscard]] QString rowDescription(int row) const override;
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override;
    [[nodiscard]] int columnCount() const override;
    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override;
    [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
    [[nodiscard]] bool isRowSelected(int row) const override;
    /// Adds the row to the selection if several rows can be selected; otherwise selects it alone.
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    /// Does nothing if only one row can be selected: it stays selected until another one is.
    bool unselectRow(int row) override;
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

  private:
    [[nodiscard]] KyvarQuorviTableView& table() const;
    void forgetChildren();

    mutable QHash<int, QAccessible::Id> m_children;
};

/// Notifies assistive programs, if any run, of the cell's change.
void tellOfCell(KyvarQuorviTableView& table, const QModelIndex& cell, QAccessible::Event what);

} // namespace quorvi
