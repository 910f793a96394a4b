// The one-byte character set of keys' characters.
#pragma once

#include <cstdint>

namespace quorvi {

/// The UTF-16 unit of a Mac Roman character; every byte has one.
[[nodiscard]] char16_t MacRomanToUnicode(std::uint8_t character);

/// The Mac Roman character of a UTF-16 unit; "?" if the set lacks it.
[[nodiscard]] std::uint8_t UnicodeToMacRoman(char16_t unit);

} // namespace quorvi
