// Checks a binary property list before libplist sees it. Private to this library.
#pragma once

#include <cstdint>
#include <span>

#include "plist/Limits.h"

namespace quorvi::plist {

/// Whether the bytes are a binary property list (version 00) whose objects, written out in full, keep to the
/// bounds and the other limits of Limits.h: no object within itself, and none that exceeds them through
/// repeated references. Does not check that every value is well-formed.
[[nodiscard]] bool isBoundedBinary(std::span<const std::uint8_t> bytes, const Bounds& bounds = {});

/// Whether the bytes start as a binary property list does.
[[nodiscard]] bool looksBinary(std::span<const std::uint8_t> bytes);

} // namespace quorvi::plist
