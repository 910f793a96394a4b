// The look at an XML property list before libplist sees it. Private to this library.
#pragma once

#include <string_view>

namespace quorvi::plist {

/// Whether the text has the shape of one XML property list, whole to its last end tag, within the limits of
/// Limits.h. It does not say that every value in it is well-formed.
[[nodiscard]] bool isBoundedXml(std::string_view xml);

} // namespace quorvi::plist
