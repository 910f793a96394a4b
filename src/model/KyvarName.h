// Names in the record: UTF-16 little-endian units in a fixed number of bytes, padded with zeros.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "model/ConfigRecord.h"

namespace quorvi {

/// The number of UTF-16 units before the first zero unit, at most half the size, which is in bytes.
/// 0 when the name is missing (null).
[[nodiscard]] std::size_t KyvarNameLength(const std::uint8_t* name, std::size_t size);

/// Zeroes `size` bytes of the buffer and stores as many bytes of the string as fit; a surrogate pair may be
/// cut. Returns the number of bytes stored; 0 if the buffer or the string is missing (null) or the string is
/// empty, which callers treat as failure. A missing string leaves the buffer zeroed.
std::size_t KyvarStringToName(const std::u16string* string, std::uint8_t* buffer, std::size_t size);

/// The string that KyvarNameLength counts, with half a surrogate pair kept unchanged; empty if the first unit
/// is zero. Returns std::nullopt if the name is missing (null).
[[nodiscard]] std::optional<std::u16string> KyvarNameToString(const std::uint8_t* name, std::size_t size);

/// Whether the first `length` bytes of two macro or profile images are equal. Returns false without comparing
/// if a buffer is missing (null) or the length is 0 or above 1024: the whole record is never compared this
/// way.
[[nodiscard]] bool KyvarBuffersAreIdentical(const void* a, const void* b, std::size_t length);

} // namespace quorvi
