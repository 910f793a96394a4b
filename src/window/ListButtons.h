// The buttons below a list.
#pragma once

class QPushButton;

namespace quorvi {

class KyvarQuorviTableView;

/// Enables or disables the button. One that takes itself out of use leaves the keyboard to its list, not to
/// whatever comes next.
void enableButtonOf(KyvarQuorviTableView& list, QPushButton& button, bool enabled);

} // namespace quorvi
