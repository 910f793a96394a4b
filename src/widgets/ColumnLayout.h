// The layout of the columns of the panel's tables.
#pragma once

class QTableView;

namespace quorvi {

/// Sets the widths of the tag's tableColumns(), wider if a title does not fit; the table may have fewer
/// columns, or none.
void layOutColumns(QTableView& table, int tag);
/// Aligns the titles with the texts below them. Styles do not mirror titles like cells' texts.
void alignTitles(QTableView& table);

} // namespace quorvi
