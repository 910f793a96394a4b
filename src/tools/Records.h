// What the panel and the mouse need of settings.
#pragma once

#include <string>

#include "plist/Value.h"

namespace quorvi::tools {

/// Why the panel or the mouse does not take the tree, in words; empty when both do.
[[nodiscard]] std::string faultOfTree(const plist::Dictionary& tree);

} // namespace quorvi::tools
