// Writing property lists.
#pragma once

#include <optional>
#include <string>

#include "plist/Value.h"

namespace quorvi::plist {

/// The value as an XML property list 1.0 in UTF-8, as whole and exact as readPropertyList reads it back. A
/// lone surrogate or a character that XML cannot hold is written as U+FFFD, so that every other reader can
/// read the file. A UID is written as XML has it, a dictionary with "CF$UID"; the fraction of a date's second
/// and the sign of a negative zero are lost. Nothing when the tree holds a "nothing" value, or exceeds the
/// limits of Limits.h and could not be read back; a container within itself does.
///
/// A carriage return in a text is written as it is. readPropertyList reads it back, but a conforming XML
/// parser takes it for an end of line and gives a line feed.
[[nodiscard]] std::optional<std::string> writeXml(const Value& value);

} // namespace quorvi::plist
