// Writing property lists.
#pragma once

#include <optional>
#include <string>

#include "plist/Value.h"

namespace quorvi::plist {

/// The value as an XML property list 1.0 in UTF-8, which readPropertyList reads back exactly. A lone
/// surrogate or a character that XML cannot hold is written as U+FFFD, so that every other reader can read
/// the file. A UID is written as a dictionary with "CF$UID", its form in XML; fractions of a date's second
/// and the sign of a negative zero are lost. Returns std::nullopt if the tree holds a "nothing" value, or
/// exceeds the limits of Limits.h and could not be read back, as a container within itself does.
///
/// A carriage return in a text is written as it is. readPropertyList reads it back, but a conforming XML
/// parser turns it into a line feed.
///
/// Writes the text into the memory of room and discards its content: memory that the process has already is
/// quicker than memory that the system has to give.
[[nodiscard]] std::optional<std::string> writeXml(const Value& value, std::string room = {});

} // namespace quorvi::plist
