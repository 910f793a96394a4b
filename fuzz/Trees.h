// Requirements for every configuration tree, whatever its source.
#pragma once

#include "model/ConfigRecord.h"
#include "plist/Value.h"

namespace quorvi::fuzz {

/// The smallest tree that the panel accepts: no profiles, no macros.
[[nodiscard]] plist::Dictionary emptyTree();

/// Converts the tree into the record. A second encoder, written for the tests from the table of offsets
/// alone, must give the same bytes.
void requireEncoding(const plist::Dictionary& tree);

/// Converts the record into a tree, which keeps to the limits whatever the record holds. Returns the tree.
plist::Dictionary requireDecoding(const ConfigRecord& record);

/// Converts the tree, if it converts, into the record, that into a tree, which is decoded as above, and so
/// on: what was decoded and encoded once is encoded to the same bytes from then on.
void requireSettling(const plist::Dictionary& tree);

} // namespace quorvi::fuzz
