// A normal form of configuration trees, in which equivalent trees are equal.
#pragma once

#include "plist/Value.h"

namespace quorvi {

/// A new tree. It has every known key (Keys.h), with a value of the key's type that reads like the tree's, so
/// that comparisons need no type checks. All nine inputs of a profile have an assignment. List items that are
/// not dictionaries become empty ones; profiles and macros after the first mostMatched (Matches.h) stay
/// unchanged and shared with the tree. Values without effect are left out: the firmware's number, and the
/// stored menu texts of assignments. Unknown keys are kept.
[[nodiscard]] plist::Dictionary whatCounts(const plist::Dictionary& tree);

} // namespace quorvi
