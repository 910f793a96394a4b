// UTF-8 and UTF-16. Both conversions are total: invalid Unicode becomes U+FFFD, the replacement character.
#pragma once

#include <string>
#include <string_view>

namespace quorvi {

inline constexpr char16_t kReplacementCharacter = 0xFFFD;

/// The text in UTF-16. One U+FFFD for each longest piece that is not valid UTF-8 (overlong forms, surrogates
/// and values above U+10FFFF are not).
[[nodiscard]] std::u16string toUtf16(std::string_view utf8);

/// The text in UTF-8. U+FFFD for each lone surrogate.
[[nodiscard]] std::string toUtf8(std::u16string_view utf16);

/// As toUtf8, and U+FFFD too for each character that an XML 1.0 document cannot hold: the control characters
/// below U+0020 except tab, line feed and carriage return, U+FFFE and U+FFFF.
[[nodiscard]] std::string toXmlUtf8(std::u16string_view utf16);

} // namespace quorvi
