#include "tools/Json.h"

#include <array>
#include <cstdio>

#include "base/Unicode.h"

namespace quorvi::tools {

namespace {

/// Between quotation marks. Characters beyond ASCII stand as they are.
std::string inQuotes(std::string_view utf8) {
    std::string text = "\"";
    for (const char c : utf8) {
        if (c == '"' || c == '\\') {
            text.append(1, '\\').append(1, c);
        } else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
            std::array<char, 8> escape{};
            std::snprintf(escape.data(), escape.size(), "\\u%04x", unsigned{static_cast<unsigned char>(c)});
            text += escape.data();
        } else {
            text += c;
        }
    }
    return text + '"';
}

} // namespace

Json::Json(std::string_view utf8) : Json(std::u16string_view(toUtf16(utf8))) {}

Json::Json(std::u16string_view utf16) : m_text(inQuotes(toUtf8(utf16))) {}

Json Json::array(const std::vector<Json>& items) {
    Json list;
    list.m_text = "[";
    for (const Json& item : items)
        list.m_text.append(list.m_text.size() > 1 ? "," : "").append(item.m_text);
    list.m_text += ']';
    return list;
}

Json Json::object(std::initializer_list<Member> members) {
    Json dictionary;
    dictionary.m_text = "{";
    for (const auto& [key, value] : members)
        dictionary.m_text.append(dictionary.m_text.size() > 1 ? "," : "")
            .append(1, '"')
            .append(key)
            .append("\":")
            .append(value.m_text);
    dictionary.m_text += '}';
    return dictionary;
}

void print(const Json& value) {
    std::puts(value.text().c_str());
}

} // namespace quorvi::tools
