// Helpers for texts that users type or paste.
#pragma once

#include <string_view>

namespace quorvi {

/// Whether the character is a blank of any width, a tab or the end of a line.
[[nodiscard]] inline bool isBlank(char16_t character) {
    return (character >= u'\t' && character <= u'\r') || character == u' ' || character == u'\u00A0' ||
           (character >= u'\u2000' && character <= u'\u200A') || character == u'\u202F' ||
           character == u'\u3000';
}

/// In ASCII.
[[nodiscard]] inline bool isDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

/// The text without the blanks at both ends.
[[nodiscard]] inline std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace quorvi
