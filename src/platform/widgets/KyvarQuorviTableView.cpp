#include "platform/widgets/KyvarQuorviTableView.h"

#include "platform/widgets/TableColumns.h"

#include <QHeaderView>
#include <QMenu>
#include <QVariant>

namespace quorvi {

namespace {

constexpr int rowPadding = 10;
constexpr int headerPadding = 8;

} // namespace

KyvarQuorviTableView::KyvarQuorviTableView(QWidget* parent) : QTableView(parent) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

int KyvarQuorviTableView::tag() const {
    return property("tag").toInt();
}

int KyvarQuorviTableView::selectedRow() const {
    const QModelIndexList rows = selectionModel() ? selectionModel()->selectedRows() : QModelIndexList();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void KyvarQuorviTableView::selectRowAlone(int row) {
    if (row < 0 || !model() || row >= model()->rowCount())
        deselectAll();
    else
        selectRow(row);
}

void KyvarQuorviTableView::deselectAll() {
    clearSelection();
    // A row that is current without being selected would be what the next arrow key starts from.
    if (selectionModel())
        selectionModel()->clearCurrentIndex();
}

void KyvarQuorviTableView::abortEditing() {
    if (state() != EditingState)
        return;
    for (int row = 0; row < model()->rowCount(); ++row)
        for (int column = 0; column < model()->columnCount(); ++column)
            if (QWidget* editor = indexWidget(model()->index(row, column)))
                closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

void KyvarQuorviTableView::setMenu(QMenu* menu) {
    m_menu = menu;
}

void KyvarQuorviTableView::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    layOutColumns();
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
                                               header->sectionSizeHint(section) + headerPadding));
        } else {
            header->setSectionResizeMode(section, QHeaderView::Stretch);
        }
        ++section;
    }
}

} // namespace quorvi
