// Independent copies of whole trees, for editors that work on a copy until the user confirms.
#pragma once

#include "plist/Value.h"

namespace quorvi::plist {

/// A copy whose dictionaries and arrays are all new, even where the source shares them. Returns Value() if
/// the tree holds a "nothing" value, which no property list can hold, or exceeds the depth or the number of
/// values of Limits.h, as a container within itself does.
[[nodiscard]] Value deepCopy(const Value& value);

/// As deepCopy, of a dictionary; nil when it is nil or cannot be copied.
[[nodiscard]] Dictionary mutableDeepCopy(const Dictionary& dictionary);

} // namespace quorvi::plist
