// Snapshots of the settings that share everything unchanged.
#pragma once

#include <cstddef>

#include "plist/Value.h"

namespace quorvi {

/// A copy of the tree. Each container that is equal in the earlier snapshot, including its order, is shared
/// with it, so a copy after a small change takes little memory. Without any change the result is the earlier
/// snapshot itself. Snapshots must not be changed. Nil for a nil tree.
[[nodiscard]] plist::Dictionary snapshotOf(const plist::Dictionary& tree, const plist::Dictionary& earlier);

/// The same if only the settings and the profile at the index can differ from the earlier snapshot, which
/// must not be nil. Skips the rest, which takes a tenth of the time.
[[nodiscard]] plist::Dictionary snapshotOfProfile(
    const plist::Dictionary& tree, const plist::Dictionary& earlier, std::size_t profile);

} // namespace quorvi
