// Property lists written by libplist, for comparison with the panel's writer.
#pragma once

#include <string>

#include "plist/Value.h"

namespace quorvi::plist::samples {

/// libplist's text of the value, without limits; empty if it holds a "nothing" value. The value must not
/// contain itself.
[[nodiscard]] std::string libplistXml(const Value& value);

} // namespace quorvi::plist::samples
