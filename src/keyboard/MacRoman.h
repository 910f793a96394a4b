// The one-byte character set in which a key's character is kept.
#pragma once

#include <cstdint>

namespace quorvi {

/// The UTF-16 unit of a Mac Roman character; every byte has one.
[[nodiscard]] char16_t MacRomanToUnicode(std::uint8_t character);

/// The Mac Roman character of a UTF-16 unit; "?" for what the set does not hold.
[[nodiscard]] std::uint8_t UnicodeToMacRoman(char16_t unit);

} // namespace quorvi
