#include "plist/XmlText.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quorvi::plist {

namespace {

bool isEscaped(char c) {
    return c == '<' || c == '>' || c == '&';
}

std::string_view entityFor(char c) {
    return c == '<' ? "&lt;" : c == '>' ? "&gt;" : "&amp;";
}

/// Four characters for each three bytes, the last ones padded with '='.
void appendBase64(std::string& text, const std::uint8_t* bytes, std::size_t count) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (std::size_t i = 0; i < count; i += 3) {
        const auto byte = [&](std::size_t at) { return at < count ? std::uint32_t{bytes[at]} : 0U; };
        const std::uint32_t group = byte(i) << 16U | byte(i + 1) << 8U | byte(i + 2);
        text.push_back(digits[group >> 18U]);
        text.push_back(digits[group >> 12U & 63U]);
        text.push_back(i + 1 < count ? digits[group >> 6U & 63U] : '=');
        text.push_back(i + 2 < count ? digits[group & 63U] : '=');
    }
}

} // namespace

void XmlText::integer(std::int64_t number) {
    std::array<char, 24> digits; // NOLINT(cppcoreguidelines-pro-type-member-init): written before it is read
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    indent(m_depth);
    m_text.append("<integer>").append(digits.data(), end).append("</integer>\n");
}

XmlText::Escaped XmlText::escaped(std::string_view startTag, std::string_view utf8, std::string_view endTag) {
    indent(m_depth);
    m_text += startTag;
    const std::size_t start = m_text.size();
    std::size_t entities = 0;
    for (;;) { // most texts have nothing to escape
        const auto plain =
            static_cast<std::size_t>(std::find_if(utf8.begin(), utf8.end(), isEscaped) - utf8.begin());
        m_text += utf8.substr(0, plain);
        if (plain == utf8.size())
            break;
        m_text += entityFor(utf8[plain]);
        utf8.remove_prefix(plain + 1);
        ++entities;
    }
    const std::size_t length = m_text.size() - start;
    m_text.append(endTag).push_back('\n');
    return {entities, length};
}

void XmlText::data(const Data& bytes) {
    // Lines of 76 columns, a tab counted as eight; beyond the eighth level the indent stays the same.
    const std::size_t inset = std::min<std::size_t>(m_depth, 8);
    const std::size_t bytesPerLine = (76 - 8 * inset) / 4 * 3;
    line("<data>");
    for (std::size_t at = 0; at < bytes.size(); at += bytesPerLine) {
        indent(inset);
        appendBase64(m_text, bytes.data() + at, std::min(bytesPerLine, bytes.size() - at));
        m_text.push_back('\n');
    }
    line("</data>");
}

} // namespace quorvi::plist
