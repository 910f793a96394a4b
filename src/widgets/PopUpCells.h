// The cells of a table's column that are pop-ups: they show an item of a menu and open the menu to choose
// another.
#pragma once

#include <QMenu>
#include <QPointer>
#include <QStyledItemDelegate>

class QKeyEvent;
class QMouseEvent;
class QTableView;

namespace quorvi {

/// The value of such a cell is the index of the item that it shows, its text the item's title. A cell that is
/// not enabled opens nothing.
class PopUpCells : public QStyledItemDelegate {
    Q_OBJECT

  public:
    /// Belongs to the table. The menu is another's, and shared by the cells.
    PopUpCells(QTableView* table, int column, QMenu* menu);

    [[nodiscard]] int column() const { return m_column; }
    /// Opens the menu for the cell; false when it is none of these, or not enabled.
    bool open(const QModelIndex& cell);
    /// After the table has dealt with the press: opens the menu when it was the left button on a cell.
    void mousePressed(const QMouseEvent& event);
    /// True when the key opens the menu, and did so for the selected row.
    [[nodiscard]] bool keyPressed(const QKeyEvent& event);

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  private:
    QTableView* m_table;
    int m_column;
    QPointer<QMenu> m_menu;
    QMetaObject::Connection m_choice;
};

} // namespace quorvi
