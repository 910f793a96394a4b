// Checks an XML property list before libplist sees it. Private to this library.
#pragma once

#include <string_view>

#include "plist/Limits.h"

namespace quorvi::plist {

/// Whether the text has the shape of one XML property list, whole to its last end tag, within the bounds and
/// the other limits of Limits.h. Does not check that every value is well-formed.
[[nodiscard]] bool isBoundedXml(std::string_view xml, const Bounds& bounds = {});

} // namespace quorvi::plist
