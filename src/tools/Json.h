// Output for scripts: JSON (RFC 8259).
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvi::tools {

/// A value as its JSON text. Invalid Unicode in texts becomes U+FFFD.
class Json {
  public:
    using Member = std::pair<std::string_view, Json>;

    Json() = default; ///< null
    Json(bool value) : m_json(value ? "true" : "false") {}
    template <std::integral Number>
    requires(!std::same_as<Number, bool>) Json(Number value) : m_json(std::to_string(value)) {}
    Json(std::string_view utf8);
    Json(const std::string& utf8) : Json(std::string_view(utf8)) {}
    Json(const char* utf8) : Json(std::string_view(utf8)) {}
    Json(std::u16string_view utf16);
    Json(const std::u16string& utf16) : Json(std::u16string_view(utf16)) {}
    Json(const char16_t* utf16) : Json(std::u16string_view(utf16)) {}
    Json(const void*) = delete; // keeps stray pointers from becoming booleans

    [[nodiscard]] static Json array(const std::vector<Json>& items);
    /// The members in this order. Keys are ASCII without quotation marks and backslashes.
    [[nodiscard]] static Json object(std::initializer_list<Member> members);

    [[nodiscard]] const std::string& text() const { return m_json; }

  private:
    std::string m_json = "null";
};

/// The text, or null for an empty one.
template <typename Text>
[[nodiscard]] Json textOrNull(const Text& text) {
    return text.empty() ? Json() : Json(text);
}

/// Prints the value on standard output, as one line.
void print(const Json& value);

} // namespace quorvi::tools
