// The requirements for a property list after writing and reading.
#pragma once

#include "plist/Value.h"

namespace quorvi::fuzz {

/// Whether the value is far enough from the limits of property lists for every way of writing it to keep to
/// them: at most 10,000 values, a hundred levels, and a hundred thousand characters and bytes.
[[nodiscard]] bool isModest(const plist::Value& value);

/// Whether the value that was read is the one that was (or may have been) written, but for what writing is
/// known to lose (see writeXml): characters that XML cannot hold, the fraction of a date's second, what kind
/// of value a UID is.
[[nodiscard]] bool hasSurvived(const plist::Value& written, const plist::Value& read);

/// Writes the modest value, reads it again, and writes that: nothing may be lost, and the text must stay.
void requireRoundTrip(const plist::Value& value);

} // namespace quorvi::fuzz
