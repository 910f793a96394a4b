#include "base/Unicode.h"

#include <cstddef>

namespace quorvi {

namespace {

constexpr bool isHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}
constexpr bool isSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}
constexpr bool isXmlCharacter(char32_t c) {
    return c >= 0x20 ? c != 0xFFFE && c != 0xFFFF : c == U'\t' || c == U'\n' || c == U'\r';
}

/// The meaning of a UTF-8 lead byte: how many bytes follow it, its own bits, and the range of the first that
/// follows, which reveals overlong forms, surrogates and values above U+10FFFF. Table 3-7 of the Unicode
/// Standard.
struct Lead {
    unsigned following;
    char32_t bits;
    unsigned char lowest = 0x80;
    unsigned char highest = 0xBF;
};

constexpr Lead leadOf(unsigned char byte) {
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, byte & 0x1FU};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {2, byte & 0x0FU, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
            static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {3, byte & 0x07U, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
    return {0, kReplacementCharacter};
}

/// Removes one character, or one invalid piece as U+FFFD, from a text that starts with a byte above 0x7F.
char32_t takeCharacter(std::string_view& utf8) {
    const Lead lead = leadOf(static_cast<unsigned char>(utf8.front()));
    utf8.remove_prefix(1);
    char32_t c = lead.bits;
    for (unsigned i = 0; i < lead.following; ++i) {
        const auto byte = static_cast<unsigned char>(utf8.empty() ? '\0' : utf8.front());
        if (byte < (i == 0 ? lead.lowest : 0x80) || byte > (i == 0 ? lead.highest : 0xBF))
            return kReplacementCharacter;
        c = c << 6U | (byte & 0x3FU);
        utf8.remove_prefix(1);
    }
    return c;
}

void appendUtf8(std::string& text, char32_t c) {
    const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto putLow6 = [&](char32_t bits) { put(0x80U | (bits & 0x3FU)); };
    if (c < 0x80)
        return put(c);
    if (c < 0x800) {
        put(0xC0U | c >> 6U);
        return putLow6(c);
    }
    if (c < 0x10000) {
        put(0xE0U | c >> 12U);
        putLow6(c >> 6U);
        return putLow6(c);
    }
    put(0xF0U | c >> 18U);
    putLow6(c >> 12U);
    putLow6(c >> 6U);
    putLow6(c);
}

template <typename IsAllowed>
std::string encode(std::u16string_view utf16, IsAllowed isAllowed) {
    std::string text;
    text.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        char32_t c = utf16[i];
        if (isHighSurrogate(c) && i + 1 < utf16.size() && isLowSurrogate(utf16[i + 1]))
            c = 0x10000U + ((c & 0x3FFU) << 10U) + (utf16[++i] & 0x3FFU);
        appendUtf8(text, isSurrogate(c) || !isAllowed(c) ? char32_t{kReplacementCharacter} : c);
    }
    return text;
}

} // namespace

std::u16string toUtf16(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        if (static_cast<unsigned char>(utf8.front()) < 0x80) {
            text.push_back(static_cast<char16_t>(utf8.front()));
            utf8.remove_prefix(1);
            continue;
        }
        const char32_t c = takeCharacter(utf8);
        if (c >= 0x10000) {
            text.push_back(static_cast<char16_t>(0xD800U + ((c - 0x10000U) >> 10U)));
            text.push_back(static_cast<char16_t>(0xDC00U + (c & 0x3FFU)));
        } else {
            text.push_back(static_cast<char16_t>(c));
        }
    }
    return text;
}

std::string toUtf8(std::u16string_view utf16) {
    return encode(utf16, [](char32_t) { return true; });
}

std::string toXmlUtf8(std::u16string_view utf16) {
    return encode(utf16, isXmlCharacter);
}

} // namespace quorvi
