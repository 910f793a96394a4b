#include "widgets/KyvarQuorviTableView.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

#include "platform/GrabFocusFilter.h"
#include "widgets/AccessibleTable.h"
#include "widgets/ColumnLayout.h"
#include "widgets/FocusRing.h"
#include "widgets/Metrics.h"
#include "widgets/PopUpCells.h"
#include "widgets/RowNumbers.h"
#include "widgets/ThemeColours.h"
#include "widgets/TwoLineCells.h"

namespace quorvi {

namespace {

void setRowHeights(QTableView& table) {
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + metrics::rowAir);
}

} // namespace

KyvarQuorviTableView::KyvarQuorviTableView(QWidget* parent)
    : QTableView(parent), m_emptyText(new EmptyText(*this)) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    // An accidental key press must not start replacing a name.
    setEditTriggers(DoubleClicked | SelectedClicked | EditKeyPressed);
    // It selects nothing. Disabled it would have another colour than the titles beside it.
    findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly)
        ->setAttribute(Qt::WA_TransparentForMouseEvents);
    verticalHeader()->hide();
    setRowHeights(*this);
    horizontalHeader()->setHighlightSections(false);
    alignTitles(*this);
}

int KyvarQuorviTableView::tag() const {
    return property("tag").toInt();
}

void KyvarQuorviTableView::setSeveralSelectable() {
    setSelectionMode(QAbstractItemView::ExtendedSelection);
}

int KyvarQuorviTableView::selectedRow() const {
    const std::vector<int> rows = selectedRows();
    if (rows.empty())
        return -1;
    const int current = currentIndex().row();
    return std::ranges::binary_search(rows, current) ? current : rows.front();
}

std::vector<int> KyvarQuorviTableView::selectedRows() const {
    // The selection itself, including rows that the model no longer has: a row stays selected until the next
    // reload.
    const QItemSelection selection = selectionModel() ? selectionModel()->selection() : QItemSelection();
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selection)
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    std::ranges::sort(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void KyvarQuorviTableView::selectRows(const std::vector<int>& rows, int current) {
    QItemSelection selection;
    int chosen = -1;
    for (const int row : rows) {
        if (row < 0 || !model() || row >= model()->rowCount())
            continue;
        const QModelIndex first = model()->index(row, 0);
        selection.select(first, first);
        if (chosen < 0 || chosen != current)
            chosen = row;
    }
    if (chosen < 0)
        return deselectAll();
    const QScopedValueRollback keeps(m_keepsSelection, true);
    // The next range selection also starts here.
    setCurrentIndex(model()->index(chosen, 0));
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void KyvarQuorviTableView::deselectAll() {
    clearSelection();
    // The next arrow key would start from a row that is current but not selected.
    if (selectionModel())
        selectionModel()->clearCurrentIndex();
}

void KyvarQuorviTableView::editCell(int column, int row) {
    const QModelIndex cell = model() ? model()->index(row, column) : QModelIndex();
    if (cell.flags() & Qt::ItemIsEditable)
        edit(cell);
}

// A click on a pop-up opens its menu, not a field, whether its row is selected or not.
bool KyvarQuorviTableView::editsPopUp(
    const QModelIndex& cell, EditTrigger trigger, const QEvent* event) const {
    if (trigger == DoubleClicked && event)
        return m_popUpCells->isBesideSign(cell, static_cast<const QMouseEvent*>(event)->pos());
    return trigger != SelectedClicked;
}

bool KyvarQuorviTableView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    if (isPopUp(index) && !editsPopUp(index, trigger, event))
        return false;
    const bool editing = QTableView::edit(index, trigger, event);
    if (QWidget* field = editing ? indexWidget(index) : nullptr) {
        field->setAccessibleName(model()->headerData(index.column(), Qt::Horizontal).toString());
        hideGrabsDuring(*field);
    }
    return editing;
}

bool KyvarQuorviTableView::toggleCell(const QModelIndex& cell) {
    if (!(cell.flags() & Qt::ItemIsUserCheckable) || !(cell.flags() & Qt::ItemIsEnabled))
        return false;
    // The cell may be in another row than the selected one, which stays selected.
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    const bool checked = cell.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    model()->setData(cell, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    tellOfCell(*this, cell, QAccessible::NameChanged);
    return true;
}

// QTableView's versions of these two only add notifications of cells, with child indexes that differ from
// ours. NOLINTBEGIN(bugprone-parent-virtual-call)
void KyvarQuorviTableView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (hasFocus())
        tellOfCell(*this, current, QAccessible::Focus);
    QAbstractItemView::currentChanged(current, previous);
}

void KyvarQuorviTableView::selectionChanged(
    const QItemSelection& selected, const QItemSelection& deselected) {
    for (const QModelIndex& cell : deselected.indexes())
        tellOfCell(*this, cell, QAccessible::SelectionRemove);
    for (const QModelIndex& cell : selected.indexes())
        tellOfCell(*this, cell, QAccessible::SelectionAdd);
    QAbstractItemView::selectionChanged(selected, deselected);
    verticalHeader()->viewport()->update();
    emit selectedRowChanged();
}
// NOLINTEND(bugprone-parent-virtual-call)

void KyvarQuorviTableView::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    showFocus(true);
    // The table's own focus notification follows this handler.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (hasFocus())
                tellOfCell(*this, currentIndex(), QAccessible::Focus);
        },
        Qt::QueuedConnection);
}

void KyvarQuorviTableView::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    showFocus(false);
}

void KyvarQuorviTableView::showFocus(bool focused) {
    if (focused && !m_focusRing)
        m_focusRing = new FocusRing(*this);
    if (!m_focusRing)
        return;
    m_focusRing->fit();
    m_focusRing->raise();
    m_focusRing->setVisible(focused);
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

void KyvarQuorviTableView::setTwoLines() {
    m_hasTwoLines = true;
    setItemDelegate(new TwoLineCells(this));
    verticalHeader()->setDefaultSectionSize(TwoLineCells::heightOfLines(font()) + metrics::twoLineAir);
}

void KyvarQuorviTableView::setTallRows() {
    setIconSize({metrics::listIconSize, metrics::listIconSize});
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + metrics::tallRowAir);
}

void KyvarQuorviTableView::setRowsShown(int rows, int least) {
    m_rowsShown = rows;
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    setLeastRows(least);
}

void KyvarQuorviTableView::setLeastRows(int rows) {
    m_leastRows = rows;
    updateGeometry();
}

// Titles are not measured before they are first shown.
int KyvarQuorviTableView::heightOfRows(int rows) const {
    const int titles = horizontalHeader()->isHidden() ? 0
                       : m_hasBeenShown               ? horizontalHeader()->sizeHint().height()
                                                      : fontMetrics().height() + metrics::rowAir;
    return 2 * frameWidth() + titles + rows * verticalHeader()->defaultSectionSize();
}

QSize KyvarQuorviTableView::sizeHint() const {
    const QSize usual = QTableView::sizeHint();
    return m_rowsShown > 0 ? QSize(usual.width(), heightOfRows(m_rowsShown)) : usual;
}

QSize KyvarQuorviTableView::minimumSizeHint() const {
    const QSize usual = QTableView::minimumSizeHint();
    return m_leastRows > 0 ? QSize(usual.width(), heightOfRows(m_leastRows)) : usual;
}

void KyvarQuorviTableView::setRowsNumbered() {
    m_areRowsNumbered = true;
    if (m_hasBeenShown)
        makeNumbers();
}

void KyvarQuorviTableView::makeNumbers() {
    const int height = verticalHeader()->defaultSectionSize();
    setVerticalHeader(new RowNumbers(*this));
    setRowHeights(*this);
    verticalHeader()->setDefaultSectionSize(height);
    verticalHeader()->show();
}

void KyvarQuorviTableView::setRowMoves(RowMoves moves) {
    delete m_rowDrag;
    m_rowDrag = new RowDrag(*this, std::move(moves));
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

void KyvarQuorviTableView::resizeEvent(QResizeEvent* event) {
    const QRect row = visualRect(currentIndex());
    QTableView::resizeEvent(event);
    m_emptyText->fit();
    if (m_focusRing)
        m_focusRing->fit();
    // Controls that appear below the table often concern this row.
    const bool wasInView = row.top() >= 0 && row.bottom() < event->oldSize().height();
    if (wasInView && row.bottom() >= viewport()->height())
        scrollTo(currentIndex());
}

void KyvarQuorviTableView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        alignTitles(*this);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        m_emptyText->takeColour();
}

void KyvarQuorviTableView::setMenu(QMenu* menu) {
    m_menu = menu;
}

QMenu* KyvarQuorviTableView::menuForEvent(const QContextMenuEvent& event) {
    if (!isEnabled())
        return nullptr;
    const int row = rowAt(event.pos().y());
    if (event.reason() == QContextMenuEvent::Mouse && !std::ranges::binary_search(selectedRows(), row))
        selectRowAlone(row);
    return m_menu;
}

// Here and not in the handlers of single events, because a disabled table must query the delegate too.
bool KyvarQuorviTableView::viewportEvent(QEvent* event) {
    if (m_delegated.takes(*event) || (m_rowDrag && m_rowDrag->takes(*event)))
        return true;
    const bool handled = QTableView::viewportEvent(event);
    if (m_popUpCells && event->type() == QEvent::MouseButtonPress)
        m_popUpCells->mousePressed(*static_cast<QMouseEvent*>(event));
    if (event->type() == QEvent::MouseButtonDblClick || event->type() == QEvent::MouseButtonRelease)
        followDoubleClick(*static_cast<QMouseEvent*>(event));
    return handled;
}

void KyvarQuorviTableView::followDoubleClick(const QMouseEvent& event) {
    const QModelIndex doubleClicked = std::exchange(m_doubleClickedCell, QPersistentModelIndex());
    if (event.button() != Qt::LeftButton || !isEnabled())
        return;
    if (event.type() == QEvent::MouseButtonDblClick)
        m_doubleClickedCell = indexAt(event.pos());
    else if (doubleClicked.isValid())
        emit doubleClickEnded(doubleClicked);
}

void KyvarQuorviTableView::keyPressEvent(QKeyEvent* event) {
    // A text field passes on the keys that it does not use.
    const bool handled = (m_popUpCells && !isEditing() && m_popUpCells->keyPressed(*event)) ||
                         m_keys.pressed(*event) || m_delegated.takesKey(*event);
    if (!handled)
        QTableView::keyPressEvent(event);
}

void KyvarQuorviTableView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        m_keys.openMenu();
    else if (QMenu* menu = menuForEvent(*event))
        menu->popup(event->globalPos());
    event->accept();
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
void KyvarQuorviTableView::initViewItemOption(QStyleOptionViewItem* option) const {
    QTableView::initViewItemOption(option);
    keepColours(*option);
}
#else
QStyleOptionViewItem KyvarQuorviTableView::viewOptions() const {
    QStyleOptionViewItem option = QTableView::viewOptions();
    keepColours(option);
    return option;
}
#endif

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

// A check box applies to its own row, whichever is selected.
QItemSelectionModel::SelectionFlags KyvarQuorviTableView::selectionCommand(
    const QModelIndex& index, const QEvent* event) const {
    if (m_keepsSelection)
        return QItemSelectionModel::NoUpdate;
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
        layOutColumns(*this, tag());
    if (model)
        connect(model, &QAbstractItemModel::modelReset, m_emptyText, &EmptyText::fit);
    m_emptyText->fit();
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
        if (m_areRowsNumbered)
            makeNumbers();
        layOutColumns(*this, tag());
        updateGeometries();
        updateGeometry(); // the titles are measured now
    }
    QTableView::showEvent(event);
}

} // namespace quorvi
