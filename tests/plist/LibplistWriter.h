// Property lists as libplist writes them, to hold the panel's own writer against.
#pragma once

#include <string>

#include "plist/Value.h"

namespace quorvi::plist::samples {

/// The value as libplist writes it, whatever it would cost to read; empty when it holds a "nothing" value.
/// The value holds itself nowhere.
[[nodiscard]] std::string libplistXml(const Value& value);

} // namespace quorvi::plist::samples
