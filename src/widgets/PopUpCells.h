// The cells of a table's column that are pop-ups: they show an item of a menu and open the menu to choose
// another. What the menu does not have can be typed into those that are editable.
#pragma once

#include <QElapsedTimer>
#include <QMenu>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

class QKeyEvent;
class QMouseEvent;
class QTableView;

namespace quorvi {

/// The value of such a cell is the index of the item that it shows, or -1. A cell that is not enabled opens
/// nothing.
class PopUpCells : public QStyledItemDelegate {
    Q_OBJECT

  public:
    /// What an editable cell has for a text field, and takes from it; it refuses what it cannot take.
    static constexpr int typedRole = Qt::UserRole + 1;

    /// Belongs to the table. The menu is another's, and shared by the cells.
    PopUpCells(QTableView* table, int column, QMenu* menu);

    [[nodiscard]] int column() const { return m_column; }
    /// Opens the menu for the cell; false when it is none of these, or not enabled.
    bool open(const QModelIndex& cell);
    /// After the table has dealt with the press: opens the menu when it was the left button on a cell.
    void mousePressed(const QMouseEvent& event);
    /// True when the key opens the menu, or begins a text, and did so for the selected row.
    [[nodiscard]] bool keyPressed(const QKeyEvent& event);
    /// Whether a double click at the point, of the viewport, is one to type into the cell: one on the sign of
    /// the menu is not.
    [[nodiscard]] bool isBesideSign(const QModelIndex& cell, const QPoint& point) const;

    /// The first press of a double click opens the menu, and the menu gets the second one.
    bool eventFilter(QObject* watched, QEvent* event) override;

    QWidget* createEditor(
        QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(
        QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  private:
    [[nodiscard]] bool canBeUsed(const QModelIndex& cell) const;
    [[nodiscard]] bool isSecondPress(const QMouseEvent& event) const;
    void closeMenuAndEdit();
    bool beginText(const QModelIndex& cell, const QKeyEvent& event);

    QTableView* m_table;
    int m_column;
    QPointer<QMenu> m_menu;
    QPersistentModelIndex m_pressedCell; ///< the one whose menu a press of the mouse has opened
    QElapsedTimer m_sincePress;
    QMetaObject::Connection m_choice;
};

} // namespace quorvi
