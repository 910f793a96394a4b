// The conversions between scalar types that reading a property list as numbers implies. Total: every value
// converts, whatever its type.
#pragma once

#include "plist/Value.h"

namespace quorvi::plist {

/// See Value::integer(), Value::boolean() and Value::real().
[[nodiscard]] std::int32_t toInteger(const Value& value);
[[nodiscard]] bool toBoolean(const Value& value);
[[nodiscard]] double toReal(const Value& value);

/// The low 64 bits of a carried integer; 0 for every other carried value.
[[nodiscard]] std::int64_t carriedInteger(const CarriedRef& carried);
/// Same type and same content.
[[nodiscard]] bool carriedEqual(const CarriedRef& a, const CarriedRef& b);

} // namespace quorvi::plist
