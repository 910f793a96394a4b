// How the columns of a table of the panel stand.
#pragma once

class QTableView;

namespace quorvi {

/// Gives the columns the widths that tableColumns() of the tag says, those with a title that does not fit
/// more; the table may have fewer columns, or none.
void layOutColumns(QTableView& table, int tag);
/// Has the titles begin where the texts below them do. Styles do not mirror them as they do texts of cells.
void alignTitles(QTableView& table);

} // namespace quorvi
