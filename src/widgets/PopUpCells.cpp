#include "widgets/PopUpCells.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QTableView>

#include <algorithm>
#include <utility>

#include "widgets/MenuItems.h"
#include "widgets/NewEditor.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr float kGreyedOpacity = 0.6F;

/// F2 does so only if there is no text to edit.
bool opensMenu(const QKeyEvent& event, bool editable) {
    switch (event.key()) {
    case Qt::Key_F2:
        return !editable;
    case Qt::Key_Space: // with Control it selects
        return !(event.modifiers() & Qt::ControlModifier);
    case Qt::Key_F4:
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

bool typesDigit(const QKeyEvent& event) {
    const bool plain = !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    return plain && event.text().size() == 1 && event.text().front().isDigit();
}

/// The place of the menu's sign, at the end of the cell.
QRect signIn(const QStyleOptionViewItem& option) {
    const int side = option.fontMetrics.height() * 2 / 3;
    const QRect cell = option.rect.adjusted(side / 2, 0, -side / 2, 0);
    return QStyle::alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter, QSize(side, side), cell);
}

} // namespace

PopUpCells::PopUpCells(QTableView* table, int column, QMenu* menu)
    : QStyledItemDelegate(table), m_table(table), m_column(column), m_menu(menu), m_watched(menu) {
    closeWhenChosen(*menu);
    menu->installEventFilter(this);
}

void PopUpCells::mousePressed(const QMouseEvent& event) {
    const QModelIndex cell = m_table->indexAt(event.pos());
    const bool selects = event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    if (event.button() != Qt::LeftButton || selects || !open(cell))
        return;
    m_pressedCell = isBesideSign(cell, event.pos()) ? cell : QModelIndex();
    m_sincePress.start();
}

QModelIndex PopUpCells::cellForKeys() const {
    const QModelIndexList cells = m_table->selectionModel()->selectedRows(m_column);
    const QModelIndex current = m_table->currentIndex();
    const auto found = std::find_if(cells.begin(), cells.end(),
        [&current](const QModelIndex& cell) { return cell.row() == current.row(); });
    return found == cells.end() ? cells.value(0) : *found;
}

bool PopUpCells::keyPressed(const QKeyEvent& event) {
    const QModelIndex cell = cellForKeys();
    if (!cell.isValid())
        return false;
    const bool editable = cell.flags() & Qt::ItemIsEditable;
    if (opensMenu(event, editable))
        return open(cell);
    return editable && typesDigit(event) && beginText(cell, event);
}

bool PopUpCells::canBeUsed(const QModelIndex& cell) const {
    return cell.isValid() && cell.column() == m_column && m_table->isEnabled() &&
           (cell.flags() & Qt::ItemIsEnabled);
}

bool PopUpCells::open(const QModelIndex& cell) {
    if (!m_menu || !canBeUsed(cell))
        return false;
    m_pressedCell = QModelIndex();
    const QList<QAction*> items = m_menu->actions();
    QAction* shown = items.value(cell.data(Qt::EditRole).toInt());
    for (QAction* item : items)
        markItem(*item, item == shown);
    // The list may be reloaded while the menu is open, and the cell with it.
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

// A double click

bool PopUpCells::isBesideSign(const QModelIndex& cell, const QPoint& point) const {
    QStyleOptionViewItem option;
    option.initFrom(m_table);
    option.rect = m_table->visualRect(cell);
    return option.rect.contains(point) && !signIn(option).contains(point);
}

bool PopUpCells::isSecondPress(const QMouseEvent& event) const {
    return event.button() == Qt::LeftButton && (m_pressedCell.flags() & Qt::ItemIsEditable) &&
           m_sincePress.elapsed() < QApplication::doubleClickInterval() &&
           isBesideSign(m_pressedCell, m_table->viewport()->mapFromGlobal(m_menu->mapToGlobal(event.pos())));
}

bool PopUpCells::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_watched)
        return QStyledItemDelegate::eventFilter(watched, event);
    const bool pressed =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!pressed || !isSecondPress(*static_cast<QMouseEvent*>(event)))
        return false;
    closeMenuAndEdit();
    return true;
}

void PopUpCells::closeMenuAndEdit() {
    // The rest of the click must not reach the field, where a double click selects a word.
    QMetaObject::invokeMethod(
        m_table,
        [this, cell = std::exchange(m_pressedCell, {})] {
            if (cell.isValid() && !m_table->indexWidget(cell))
                m_table->edit(cell);
        },
        Qt::QueuedConnection);
    // Nor may the press open the menu again.
    m_menu->setAttribute(Qt::WA_NoMouseReplay);
    m_menu->close();
    m_menu->setAttribute(Qt::WA_NoMouseReplay, false);
}

// The text field

bool PopUpCells::beginText(const QModelIndex& cell, const QKeyEvent& event) {
    if (!canBeUsed(cell))
        return false;
    m_table->edit(cell);
    QWidget* field = m_table->indexWidget(cell);
    if (!field)
        return false;
    QKeyEvent key(event.type(), event.key(), event.modifiers(), event.text());
    QApplication::sendEvent(field, &key);
    return true;
}

QWidget* PopUpCells::createEditor(
    QWidget* parent, const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const {
    auto* field = new QLineEdit(parent);
    field->setAutoFillBackground(true);
    field->setAccessibleDescription(index.data(Qt::ToolTipRole).toString());
    return field;
}

void PopUpCells::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (isNewEditor(*editor))
        static_cast<QLineEdit*>(editor)->setText(index.data(typedRole).toString());
}

void PopUpCells::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    model->setData(index, static_cast<QLineEdit*>(editor)->text(), typedRole);
}

void PopUpCells::updateEditorGeometry(
    QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
    editor->setGeometry(option.rect);
}

// What is drawn

void PopUpCells::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->state & QStyle::State_Enabled || !m_table->selectionModel()->isRowSelected(index.row(), {}))
        return;
    // A disabled cell is not selected with its row, but must look selected, and greyed.
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
