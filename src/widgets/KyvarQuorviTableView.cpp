#include "widgets/KyvarQuorviTableView.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QVariant>

#include <utility>

#include "widgets/MenuItems.h"
#include "widgets/PopUpCells.h"
#include "widgets/TableColumns.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr int kRowPadding = 9; // sixteen rows fit into the window as it opens
constexpr int kHeaderPadding = 8;
constexpr int kEmptyTextMargin = 24;

int mouseEventType(const QMouseEvent& event) {
    const bool down = event.type() != QEvent::MouseButtonRelease;
    switch (event.button()) {
    case Qt::LeftButton:
        return down ? kLeftMouseDown : kLeftMouseUp;
    case Qt::RightButton:
        return down ? kRightMouseDown : kRightMouseUp;
    default:
        return down ? kOtherMouseDown : kOtherMouseUp;
    }
}

/// The character of a delete key; 0 for any other key.
char16_t deleteCharacter(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Backspace)
        return kDeleteKeyCharacter;
    if (event.key() == Qt::Key_Delete)
        return kForwardDeleteKeyCharacter;
    const QString text = event.text();
    const char16_t first = text.isEmpty() ? u'\0' : text.front().unicode();
    return first == kDeleteKeyCharacter || first == kForwardDeleteKeyCharacter ||
                   first == kDeleteCharacterKeyCharacter
               ? first
               : u'\0';
}

} // namespace

KyvarQuorviTableView::KyvarQuorviTableView(QWidget* parent)
    : QTableView(parent), m_emptyText(new QLabel(viewport())) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    // A key typed by chance must not begin to replace a name.
    setEditTriggers(DoubleClicked | SelectedClicked | EditKeyPressed);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    horizontalHeader()->setHighlightSections(false);
    alignTitles();
    m_emptyText->setAlignment(Qt::AlignCenter);
    m_emptyText->setWordWrap(true);
    m_emptyText->setMargin(kEmptyTextMargin);
    m_emptyText->setForegroundRole(QPalette::WindowText);
    colourEmptyText();
    m_emptyText->setAttribute(Qt::WA_TransparentForMouseEvents); // what is clicked is the table
}

int KyvarQuorviTableView::tag() const {
    return property("tag").toInt();
}

int KyvarQuorviTableView::selectedRow() const {
    // The selection itself, not what of it the model still has: a row is selected until a reload says
    // otherwise.
    const QItemSelection selection = selectionModel() ? selectionModel()->selection() : QItemSelection();
    return selection.isEmpty() ? -1 : selection.first().top();
}

void KyvarQuorviTableView::selectRowAlone(int row) {
    if (row < 0 || !model() || row >= model()->rowCount())
        return deselectAll();
    // Not selectRow(): in a mirrored table that looks for the first column one pixel beside it, and selects
    // nothing.
    const QModelIndex first = model()->index(row, 0);
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(first, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void KyvarQuorviTableView::deselectAll() {
    clearSelection();
    // A row that is current without being selected would be what the next arrow key starts from.
    if (selectionModel())
        selectionModel()->clearCurrentIndex();
}

void KyvarQuorviTableView::editCell(int column, int row) {
    const QModelIndex cell = model() ? model()->index(row, column) : QModelIndex();
    if (cell.flags() & Qt::ItemIsEditable)
        edit(cell);
}

QModelIndex KyvarQuorviTableView::cellOfSelectedRow(Qt::ItemFlag flag) const {
    const int row = selectedRow();
    for (int column = 0; row >= 0 && column < model()->columnCount(); ++column) {
        const QModelIndex cell = model()->index(row, column);
        if (cell.flags() & flag)
            return cell;
    }
    return {};
}

bool KyvarQuorviTableView::editSelectedRow() {
    const QModelIndex cell = cellOfSelectedRow(Qt::ItemIsEditable);
    return cell.isValid() && edit(cell, EditKeyPressed, nullptr);
}

bool KyvarQuorviTableView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool editing = QTableView::edit(index, trigger, event);
    if (QWidget* field = editing ? indexWidget(index) : nullptr)
        field->setAccessibleName(model()->headerData(index.column(), Qt::Horizontal).toString());
    return editing;
}

bool KyvarQuorviTableView::toggleSelectedRow() {
    return toggleCell(cellOfSelectedRow(Qt::ItemIsUserCheckable));
}

bool KyvarQuorviTableView::toggleCell(const QModelIndex& cell) {
    if (!(cell.flags() & Qt::ItemIsUserCheckable) || !(cell.flags() & Qt::ItemIsEnabled))
        return false;
    selectionModel()->setCurrentIndex(
        cell, QItemSelectionModel::NoUpdate); // it need not be in the selected row
    const bool checked = cell.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    model()->setData(cell, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    tellOfCell(cell, QAccessible::NameChanged);
    return true;
}

void KyvarQuorviTableView::tellOfCell(const QModelIndex& index, QAccessible::Event what) {
    QAccessibleInterface* table =
        QAccessible::isActive() ? QAccessible::queryAccessibleInterface(this) : nullptr;
    if (!table || !table->tableInterface() || !index.isValid())
        return;
    if (QAccessibleInterface* cell = table->tableInterface()->cellAt(index.row(), index.column())) {
        QAccessibleEvent event(cell, what);
        QAccessible::updateAccessibility(&event);
    }
}

// All that QTableView adds to these two is to tell of cells, by places among the children that are not those
// here.
// NOLINTBEGIN(bugprone-parent-virtual-call)
void KyvarQuorviTableView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (hasFocus())
        tellOfCell(current, QAccessible::Focus);
    QAbstractItemView::currentChanged(current, previous);
}

void KyvarQuorviTableView::selectionChanged(
    const QItemSelection& selected, const QItemSelection& deselected) {
    for (const QModelIndex& cell : deselected.indexes())
        tellOfCell(cell, QAccessible::SelectionRemove);
    for (const QModelIndex& cell : selected.indexes())
        tellOfCell(cell, QAccessible::SelectionAdd);
    QAbstractItemView::selectionChanged(selected, deselected);
    emit selectedRowChanged();
}
// NOLINTEND(bugprone-parent-virtual-call)

void KyvarQuorviTableView::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    // The table tells of itself when this is done.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (hasFocus())
                tellOfCell(currentIndex(), QAccessible::Focus);
        },
        Qt::QueuedConnection);
}

void KyvarQuorviTableView::abortEditing() {
    if (!isEditing())
        return;
    for (int row = 0; row < model()->rowCount(); ++row)
        for (int column = 0; column < model()->columnCount(); ++column)
            if (QWidget* editor = indexWidget(model()->index(row, column)))
                closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

void KyvarQuorviTableView::setPopUpColumn(int column, QMenu* menu) {
    delete m_popUpCells;
    m_popUpCells = new PopUpCells(this, column, menu);
    setItemDelegateForColumn(column, m_popUpCells);
}

bool KyvarQuorviTableView::isPopUp(const QModelIndex& cell) const {
    return m_popUpCells && cell.isValid() && cell.column() == m_popUpCells->column();
}

void KyvarQuorviTableView::openMenuOf(const QModelIndex& cell) {
    if (!isPopUp(cell))
        return;
    scrollTo(cell);
    m_popUpCells->open(cell);
}

void KyvarQuorviTableView::showEmptyText() {
    m_emptyText->setGeometry(viewport()->rect());
    m_emptyText->setVisible(!model() || model()->rowCount() == 0);
}

void KyvarQuorviTableView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    showEmptyText();
}

void KyvarQuorviTableView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        alignTitles();
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        colourEmptyText();
}

// Themes give placeholders too little contrast to be read with ease, and this one says what to do next.
void KyvarQuorviTableView::colourEmptyText() {
    QPalette colours = palette();
    colours.setCurrentColorGroup(QPalette::Active);
    QPalette own = m_emptyText->palette();
    own.setColor(QPalette::WindowText, mutedTextColour(colours));
    m_emptyText->setPalette(own);
}

// Styles do not mirror them as they do texts of cells.
void KyvarQuorviTableView::alignTitles() {
    horizontalHeader()->setDefaultAlignment(
        QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter));
}

void KyvarQuorviTableView::setMenu(QMenu* menu) {
    m_menu = menu;
}

QMenu* KyvarQuorviTableView::menuForEvent(const QContextMenuEvent& event) {
    if (!isEnabled())
        return nullptr;
    if (event.reason() == QContextMenuEvent::Mouse)
        selectRowAlone(rowAt(event.pos().y()));
    return m_menu;
}

bool KyvarQuorviTableView::delegateTakes(const QMouseEvent& event) {
    const bool taken = !m_delegate || m_delegate->handleMouseEvent(event, mouseEventType(event), this);
    const bool down = event.type() != QEvent::MouseButtonRelease;
    if (event.button() == Qt::RightButton && down)
        m_rightPressWasTaken = taken;
    m_takenPresses.setFlag(event.button(), taken && down);
    return taken;
}

// Here and not in the handlers of single events, because a disabled table has to ask too.
bool KyvarQuorviTableView::viewportEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        if (delegateTakes(*static_cast<QMouseEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::MouseMove: // a drag of a press that the table has not had must not choose rows
        if (static_cast<QMouseEvent*>(event)->buttons() & m_takenPresses)
            return true;
        break;
    case QEvent::ContextMenu:
        if (m_rightPressWasTaken &&
            static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Mouse)
            return true;
        break;
    default:
        break;
    }
    const bool handled = QTableView::viewportEvent(event);
    if (m_popUpCells && event->type() == QEvent::MouseButtonPress)
        m_popUpCells->mousePressed(*static_cast<QMouseEvent*>(event));
    return handled;
}

bool KyvarQuorviTableView::selectCurrentRow(int key) {
    const bool moves = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
                       key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End;
    if (!moves || selectedRow() >= 0 || !currentIndex().isValid())
        return false;
    selectRowAlone(currentIndex().row());
    return true;
}

void KyvarQuorviTableView::keyPressEvent(QKeyEvent* event) {
    const char16_t character = deleteCharacter(*event);
    if (m_popUpCells && m_popUpCells->keyPressed(*event))
        return;
    if (event->key() == Qt::Key_F2 && editSelectedRow())
        return;
    if (event->key() == Qt::Key_Space && toggleSelectedRow())
        return;
    if (selectCurrentRow(event->key()))
        return;
    // Qt knows the menu key alone.
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        openMenuByKey();
    else if (character != 0 && isEnabled() && m_delegate)
        m_delegate->handleKeyPressed(character, this, selectedRow());
    else
        QTableView::keyPressEvent(event);
}

void KyvarQuorviTableView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        openMenuByKey();
    else if (QMenu* menu = menuForEvent(*event))
        menu->popup(event->globalPos());
    event->accept();
}

void KyvarQuorviTableView::openMenuByKey() {
    if (!isEnabled() || !m_menu)
        return;
    const QModelIndex row = model()->index(selectedRow(), 0);
    scrollTo(row);
    m_menu->popup(positionOfMenu(*m_menu, *viewport(), visualRect(row)));
    activateFirstItem(*m_menu);
}

bool KyvarQuorviTableView::isOnCheckBox(const QModelIndex& cell, const QPoint& point) const {
    if (!(cell.flags() & Qt::ItemIsUserCheckable))
        return false;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QStyleOptionViewItem option;
    initViewItemOption(&option);
#else
    QStyleOptionViewItem option = viewOptions();
#endif
    option.rect = visualRect(cell);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this).contains(point);
}

// A check box is about its own row, whichever is selected.
QItemSelectionModel::SelectionFlags KyvarQuorviTableView::selectionCommand(
    const QModelIndex& index, const QEvent* event) const {
    const bool byMouse =
        event && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease ||
                     event->type() == QEvent::MouseMove);
    if (byMouse && isOnCheckBox(index, static_cast<const QMouseEvent*>(event)->pos()))
        return QItemSelectionModel::NoUpdate;
    return QTableView::selectionCommand(index, event);
}

void KyvarQuorviTableView::setModel(QAbstractItemModel* model) {
    m_awaitedModel = nullptr;
    QTableView::setModel(model);
    if (m_hasBeenShown)
        layOutColumns();
    if (model)
        connect(model, &QAbstractItemModel::modelReset, this, &KyvarQuorviTableView::showEmptyText);
    showEmptyText();
}

void KyvarQuorviTableView::setModelLater(QAbstractItemModel* model) {
    m_awaitedModel = model;
    if (m_hasBeenShown)
        completeModel();
}

void KyvarQuorviTableView::completeModel() {
    if (m_awaitedModel)
        setModel(m_awaitedModel);
}

void KyvarQuorviTableView::updateGeometries() {
    if (m_hasBeenShown)
        QTableView::updateGeometries();
}

void KyvarQuorviTableView::showEvent(QShowEvent* event) {
    completeModel();
    if (!std::exchange(m_hasBeenShown, true)) {
        layOutColumns();
        updateGeometries();
    }
    QTableView::showEvent(event);
}

void KyvarQuorviTableView::layOutColumns() {
    QHeaderView* header = horizontalHeader();
    int section = 0;
    for (const TableColumn& column : tableColumns(tag())) {
        if (section >= header->count())
            return;
        if (column.widthInLetters > 0) {
            header->setSectionResizeMode(section, QHeaderView::Interactive);
            // The title must fit too, in whatever language and style.
            header->resizeSection(section, qMax(column.widthInLetters * fontMetrics().averageCharWidth(),
                                               header->sectionSizeHint(section) + kHeaderPadding));
        } else {
            header->setSectionResizeMode(section, QHeaderView::Stretch);
        }
        ++section;
    }
}

} // namespace quorvi
