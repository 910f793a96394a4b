#include "platform/widgets/KyvarQuorviTableView.h"

#include "platform/widgets/TableColumns.h"

#include <QHeaderView>
#include <QMenu>
#include <QVariant>

namespace quorvi {

namespace {

constexpr int rowPadding = 10;
constexpr int headerPadding = 20;

// The title in whatever language must fit.
int titleWidth(const QAbstractItemModel& model, int section, const QFontMetrics& metrics) {
    return metrics.horizontalAdvance(model.headerData(section, Qt::Horizontal).toString()) + headerPadding;
}

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
            header->resizeSection(section, qMax(column.widthInLetters * fontMetrics().averageCharWidth(),
                                               titleWidth(*model(), section, header->fontMetrics())));
        } else {
            header->setSectionResizeMode(section, QHeaderView::Stretch);
        }
        ++section;
    }
}

} // namespace quorvi
