// Gaps and margins of layouts. An interface file names a role in the dynamic property "gaps" of a layout, and
// has no number of its own.
#pragma once

class QLayout;

namespace quorvi {

/// Sets the spacing that the layout's role asks for: "none", "field", "row", "group", "column" or "section",
/// and takes its margins away; those of a page, a ContentColumn or ContentRow, stay. "head" has the margins
/// of the window's head, "message" those of a message, and "sheet" those of a page on all sides. A grid's or
/// form's rows are never further apart than the controls of a row. A layout without a role stays as it is.
void setGaps(QLayout& layout);

} // namespace quorvi
