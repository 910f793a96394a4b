// The largest configuration that the panel edits.
#pragma once

#include "plist/Value.h"

namespace quorvi::bench {

/// 5 profiles with 5 stages and 9 assigned buttons each, and 12 macros of 16 steps. A new tree with every
/// call.
[[nodiscard]] plist::Dictionary fullConfiguration();

/// The top of a settings file: the full configuration under its key, after that many keys of other programs.
[[nodiscard]] plist::Dictionary settingsFileContent(int otherKeys = 0);

} // namespace quorvi::bench
