// The text of a desktop entry (freedesktop.org, Desktop Entry, "Basic format of the file" and "Possible value
// types"). Text values are UTF-8; others are the file's bytes unchanged.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvi {

/// The header of an entry's main group.
inline constexpr std::string_view kDesktopEntryGroup = "[Desktop Entry]";

/// The keys of that group. Reading is total: lines that do not fit the format are skipped, and the first of
/// equal keys counts.
class DesktopEntryKeys {
  public:
    /// Keeps views of `text`, which must outlive this object.
    explicit DesktopEntryKeys(std::string_view text);

    /// The value of a key, its escapes resolved; std::nullopt if there is none. A key with a locale is a
    /// separate key ("Name[de]").
    [[nodiscard]] std::optional<std::string> value(std::string_view key) const;
    /// The key's value for the first matching locale name (see preferredLocales() in Languages.h), else the
    /// value without a locale.
    [[nodiscard]] std::optional<std::string> localizedValue(
        std::string_view key, const std::vector<std::string>& locales) const;
    /// Whether the value is "true".
    [[nodiscard]] bool boolean(std::string_view key) const;
    /// The elements of a list value, with ";" after each; the last one is optional.
    [[nodiscard]] std::vector<std::string> list(std::string_view key) const;

  private:
    [[nodiscard]] std::optional<std::string_view> rawValue(std::string_view key) const;

    std::vector<std::pair<std::string_view, std::string_view>> m_lines;
};

/// The bytes of the file; empty if it cannot be read, is not a regular file, or has more than 1 MiB, far more
/// than any entry.
[[nodiscard]] std::string desktopEntryFileText(const std::string& path);

/// The general escapes of a value: backslash, newline, tab, carriage return, and blanks at both ends, which
/// readers cut off.
[[nodiscard]] std::string escapedValue(std::string_view value);
/// The reverse. Unknown escapes are kept unchanged.
[[nodiscard]] std::string unescapedValue(std::string_view value);

} // namespace quorvi
