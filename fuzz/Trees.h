// What holds of every configuration tree, wherever it came from.
#pragma once

#include "model/ConfigRecord.h"
#include "plist/Value.h"

namespace quorvi::fuzz {

/// The smallest tree that the panel takes: no profiles, no macros.
[[nodiscard]] plist::Dictionary emptyTree();

/// Converts the tree into the record and back. A second encoder, written for the tests from the table of
/// offsets alone, must give the same bytes.
void requireEncoding(const plist::Dictionary& tree);

/// Converts the record into a tree, which keeps to the limits whatever the record holds, and back: what was
/// encoded once is encoded to the same bytes from then on. Gives the tree.
plist::Dictionary requireDecoding(const ConfigRecord& record);

} // namespace quorvi::fuzz
