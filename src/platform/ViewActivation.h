// Greying a whole tree of views while there is nothing to set.
#pragma once

class QWidget;

namespace quorvi {

/// Enables or disables every control below the view, the view itself included. Texts are not disabled but
/// recoloured: an inactive label is greyed and still readable by a screen reader. Containers are walked
/// through and keep their own state.
void makeViewActive(QWidget* view, bool active);

} // namespace quorvi
