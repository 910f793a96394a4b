// What assistive programs are told of a table of the panel, and what they can do with it.
#pragma once

#include <QAccessibleWidget>
#include <QHash>

namespace quorvi {

class KyvarQuorviTableView;

/// Its children are the titles of the columns and then the cells, row by row. (That of QTableView lists row
/// headers that nobody sees, and knows no check boxes, pop-ups and edits in cells.)
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

    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
    [[nodiscard]] int selectedCellCount() const override;
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;
    [[nodiscard]] QString columnDescription(int column) const override;
    [[nodiscard]] QString rowDescription(int /*row*/) const override { return {}; }
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override;
    [[nodiscard]] int columnCount() const override;
    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override;
    [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
    [[nodiscard]] bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    /// A selected row stays selected until another is.
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

  private:
    [[nodiscard]] KyvarQuorviTableView& table() const;
    void forgetChildren();

    mutable QHash<int, QAccessible::Id> m_children;
};

/// Tells assistive programs, if there are any, what has become of the cell.
void tellOfCell(KyvarQuorviTableView& table, const QModelIndex& cell, QAccessible::Event what);

} // namespace quorvi
