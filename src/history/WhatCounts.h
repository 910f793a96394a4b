// A configuration tree brought to one form, in which trees that do the same are equal.
#pragma once

#include "plist/Value.h"

namespace quorvi {

/// A new tree. Every key that is known (Keys.h) is there, with a value of its type that reads as the one in
/// the tree does, so that whoever compares two need not ask for types. All nine inputs of a profile have an
/// assignment. Items of lists that are no dictionaries become those of an empty one; profiles and macros
/// behind the first mostMatched (Matches.h) stay as they are, and the tree's own. What does nothing is left
/// out: the firmware's number, and the words that menus said of assignments. Keys that nobody here knows are
/// kept.
[[nodiscard]] plist::Dictionary whatCounts(const plist::Dictionary& tree);

} // namespace quorvi
