// Greys a whole tree of views while there is nothing to edit.
#pragma once

class QWidget;

namespace quorvi {

/// Enables or disables the view and every control below it. Labels and headings are recoloured instead of
/// disabled, so that screen readers can still read them. Containers keep their own state.
void makeViewActive(QWidget* view, bool active);

} // namespace quorvi
