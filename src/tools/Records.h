// Checks whether the panel and the mouse accept settings.
#pragma once

#include <string>

#include "plist/Value.h"

namespace quorvi::tools {

/// Why the panel or the mouse rejects the tree, in words; empty if both accept it.
[[nodiscard]] std::string faultOfTree(const plist::Dictionary& tree);

} // namespace quorvi::tools
