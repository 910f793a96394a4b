// Cells and column titles of the panel's tables, for assistive programs.
#pragma once

#include <QPersistentModelIndex>

#include "widgets/AccessibleParts.h"

namespace quorvi {

class KyvarQuorviTableView;

/// The common part of cells and titles: a place in a table.
class AccessibleTablePart : public AccessiblePart {
  public:
    explicit AccessibleTablePart(KyvarQuorviTableView& table);

  protected:
    QPointer<KyvarQuorviTableView> m_table;
};

class AccessibleColumnTitle : public AccessibleTablePart {
  public:
    AccessibleColumnTitle(KyvarQuorviTableView& table, int column);

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
    [[nodiscard]] QAccessible::State state() const override;

  private:
    int m_column;
};

/// Its actions: "Toggle" clicks a check box and selects the row of any other cell, "Press" edits a name, and
/// "ShowMenu" opens a pop-up's menu. The field in which a name is being edited is its child.
class AccessibleCell : public AccessibleTablePart,
                       public QAccessibleTableCellInterface,
                       public QAccessibleActionInterface {
  public:
    AccessibleCell(KyvarQuorviTableView& table, const QModelIndex& cell);

    [[nodiscard]] bool isValid() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Cell; }
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] bool isSelected() const override;
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override;
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    [[nodiscard]] int columnIndex() const override { return m_cell.column(); }
    [[nodiscard]] int rowIndex() const override { return m_cell.row(); }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& action) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }

  private:
    [[nodiscard]] QWidget* editor() const;

    QPersistentModelIndex m_cell;
};

} // namespace quorvi
