#include "widgets/PopUpCells.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTableView>

#include "widgets/MenuItems.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr float kGreyedOpacity = 0.6F;

bool opensMenu(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_F2:
    case Qt::Key_F4:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    case Qt::Key_Down:
    case Qt::Key_Up:
        return event.modifiers() == Qt::AltModifier;
    default:
        return false;
    }
}

/// Where the sign stands that says that there is a menu: at the end of the cell.
QRect signIn(const QStyleOptionViewItem& option) {
    const int side = option.fontMetrics.height() * 2 / 3;
    const QRect cell = option.rect.adjusted(side / 2, 0, -side / 2, 0);
    return QStyle::alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter, QSize(side, side), cell);
}

} // namespace

PopUpCells::PopUpCells(QTableView* table, int column, QMenu* menu)
    : QStyledItemDelegate(table), m_table(table), m_column(column), m_menu(menu) {
    closeWhenChosen(*menu);
}

void PopUpCells::mousePressed(const QMouseEvent& event) {
    if (event.button() == Qt::LeftButton)
        open(m_table->indexAt(event.pos()));
}

bool PopUpCells::keyPressed(const QKeyEvent& event) {
    if (!opensMenu(event))
        return false;
    const QModelIndexList rows = m_table->selectionModel()->selectedRows(m_column);
    return !rows.isEmpty() && open(rows.first());
}

bool PopUpCells::open(const QModelIndex& cell) {
    const bool possible = cell.isValid() && cell.column() == m_column && m_menu && m_table->isEnabled() &&
                          (cell.flags() & Qt::ItemIsEnabled);
    if (!possible)
        return false;
    const QList<QAction*> items = m_menu->actions();
    QAction* shown = items.value(cell.data(Qt::EditRole).toInt());
    for (QAction* item : items)
        markItem(*item, item == shown);
    // The list may be read afresh while the menu is open: then there is no such cell any more.
    disconnect(m_choice);
    m_choice =
        connect(m_menu, &QMenu::triggered, this, [this, chosen = QPersistentModelIndex(cell)](QAction* item) {
            if (chosen.isValid())
                m_table->model()->setData(chosen, int(m_menu->actions().indexOf(item)), Qt::EditRole);
        });
    const QRect rectangle = m_table->visualRect(cell);
    m_menu->setMinimumWidth(rectangle.width());
    m_menu->popup(positionOfMenu(*m_menu, *m_table->viewport(), rectangle));
    if (shown)
        m_menu->setActiveAction(shown);
    return true;
}

void PopUpCells::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->state & QStyle::State_Enabled || !m_table->selectionModel()->isRowSelected(index.row(), {}))
        return;
    // A cell that is not enabled is not selected with its row. It is to look so all the same, and greyed.
    option->state |= QStyle::State_Selected | QStyle::State_Enabled;
    QColor text = option->palette.color(QPalette::Active, QPalette::HighlightedText);
    text.setAlphaF(kGreyedOpacity);
    option->palette.setColor(QPalette::HighlightedText, text);
}

void PopUpCells::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    QStyleOption sign = cell;
    sign.rect = signIn(cell);
    // Styles draw the sign in the colour of a button's text.
    const QColor text = cellTextColour(cell);
    sign.palette.setColor(QPalette::ButtonText, text);
    sign.palette.setColor(QPalette::WindowText, text);
    const QStyle* style = cell.widget ? cell.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_IndicatorArrowDown, &sign, painter, cell.widget);
}

} // namespace quorvi
