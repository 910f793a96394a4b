// The cells of a table's column that are pop-ups: they show an item of a menu and open the menu to choose
// another. In editable ones, other values can be typed.
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

/// The cell's value is the index of the shown item, or -1. A disabled cell does not open the menu.
class PopUpCells : public QStyledItemDelegate {
    Q_OBJECT

  public:
    /// An editable cell's text for the text field; setting an invalid text is refused.
    static constexpr int typedRole = Qt::UserRole + 1;

    /// The table owns it. It does not own the menu, which all cells share.
    PopUpCells(QTableView* table, int column, QMenu* menu);

    [[nodiscard]] int column() const { return m_column; }
    /// Opens the menu for the cell; returns false if it is not one of these or disabled.
    bool open(const QModelIndex& cell);
    /// Call this after the table has handled the press: opens the menu for the left button on a cell, unless
    /// a key that selects is held.
    void mousePressed(const QMouseEvent& event);
    /// Opens the menu or starts a text for the selected row, or for the current one of several, if the key
    /// does so. Returns true if it did.
    [[nodiscard]] bool keyPressed(const QKeyEvent& event);
    /// Whether a double click at that point of the viewport edits the cell's text: true except on the menu's
    /// sign.
    [[nodiscard]] bool isBesideSign(const QModelIndex& cell, const QPoint& point) const;

    /// The first press of a double click opens the menu, which receives the second one.
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
    [[nodiscard]] QModelIndex cellForKeys() const;
    [[nodiscard]] bool isSecondPress(const QMouseEvent& event) const;
    void closeMenuAndEdit();
    bool beginText(const QModelIndex& cell, const QKeyEvent& event);

    QTableView* m_table;
    int m_column;
    QPointer<QMenu> m_menu;
    const QObject* m_watched;            ///< the menu, to compare with: it can be in its destructor
    QPersistentModelIndex m_pressedCell; ///< the cell whose menu was opened by a mouse press
    QElapsedTimer m_sincePress;
    QMetaObject::Connection m_choice;
};

} // namespace quorvi
