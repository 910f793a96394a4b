// What the settings were at a moment, kept for later at the price of what has changed.
#pragma once

#include <cstddef>

#include "plist/Value.h"

namespace quorvi {

/// A copy of the tree. Each container in it that is the same in the earlier snapshot, in content and in
/// order, is the earlier one's own, so that a copy after a small change takes little memory. The whole is the
/// earlier snapshot itself when nothing has changed. Nothing may change a snapshot. Nil for a nil tree.
[[nodiscard]] plist::Dictionary snapshotOf(const plist::Dictionary& tree, const plist::Dictionary& earlier);

/// The same when only the settings and the profile at the index can be others than in the earlier snapshot,
/// which is not nil. The rest is not looked at, which takes a tenth of the time.
[[nodiscard]] plist::Dictionary snapshotOfProfile(
    const plist::Dictionary& tree, const plist::Dictionary& earlier, std::size_t profile);

} // namespace quorvi
