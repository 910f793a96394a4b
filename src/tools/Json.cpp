#include "tools/Json.h"

#include <array>
#include <cstdio>

#include "base/Unicode.h"

namespace quorvi::tools {

namespace {

/// Between quotation marks. Characters beyond ASCII are unchanged.
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

Json::Json(std::u16string_view utf16) : m_json(inQuotes(toUtf8(utf16))) {}

Json Json::array(const std::vector<Json>& items) {
    Json list;
    list.m_json = "[";
    for (const Json& item : items)
        list.m_json.append(list.m_json.size() > 1 ? "," : "").append(item.m_json);
    list.m_json += ']';
    return list;
}

Json Json::object(std::initializer_list<Member> members) {
    Json dictionary;
    dictionary.m_json = "{";
    for (const auto& [key, value] : members)
        dictionary.m_json.append(dictionary.m_json.size() > 1 ? "," : "")
            .append(1, '"')
            .append(key)
            .append("\":")
            .append(value.m_json);
    dictionary.m_json += '}';
    return dictionary;
}

void print(const Json& value) {
    std::puts(value.text().c_str());
}

} // namespace quorvi::tools
