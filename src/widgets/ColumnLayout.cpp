#include "widgets/ColumnLayout.h"

#include <QHeaderView>
#include <QTableView>

#include "widgets/TableColumns.h"

namespace quorvi {

namespace {

constexpr int kHeaderPadding = 8;

} // namespace

void layOutColumns(QTableView& table, int tag) {
    QHeaderView* header = table.horizontalHeader();
    int section = 0;
    for (const TableColumn& column : tableColumns(tag)) {
        if (section >= header->count())
            return;
        if (column.widthInLetters > 0) {
            header->setSectionResizeMode(section, QHeaderView::Interactive);
            // The title must fit too, in whatever language and style.
            header->resizeSection(
                section, qMax(column.widthInLetters * table.fontMetrics().averageCharWidth(),
                             header->sectionSizeHint(section) + kHeaderPadding));
        } else {
            header->setSectionResizeMode(section, QHeaderView::Stretch);
        }
        ++section;
    }
}

void alignTitles(QTableView& table) {
    table.horizontalHeader()->setDefaultAlignment(
        QStyle::visualAlignment(table.layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter));
}

} // namespace quorvi
