// The buttons below a list.
#pragma once

class QPushButton;

namespace quorvi {

class KyvarQuorviTableView;

/// Enables or disables the button. A focused button that is disabled passes the focus to its list, not to the
/// next control.
void enableButtonOf(KyvarQuorviTableView& list, QPushButton& button, bool enabled);

} // namespace quorvi
