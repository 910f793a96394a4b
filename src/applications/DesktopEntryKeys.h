// The text of a desktop entry (freedesktop.org, Desktop Entry, "Basic format of the file" and "Possible value
// types"). Values are UTF-8 where they are texts, and the file's bytes as they stand otherwise.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvi {

/// The head of the group that says what an entry is.
inline constexpr std::string_view kDesktopEntryGroup = "[Desktop Entry]";

/// The keys of that group. Reading is total: lines that are none of the format's are passed
/// over, and of equal keys the first one counts.
class DesktopEntryKeys {
  public:
    /// Keeps views of `text`, which must outlive this object.
    explicit DesktopEntryKeys(std::string_view text);

    /// The value of a key, its escapes resolved; nothing when there is none. A key with a locale is a key of
    /// its own ("Name[de]").
    [[nodiscard]] std::optional<std::string> value(std::string_view key) const;
    /// The value of the first of the locale names (see preferredLocales() in Languages.h) that the key has
    /// one for, else the value of the key without a locale.
    [[nodiscard]] std::optional<std::string> localizedValue(
        std::string_view key, const std::vector<std::string>& locales) const;
    /// Whether the value is "true"; everything else and no value is not.
    [[nodiscard]] bool boolean(std::string_view key) const;
    /// The elements of a value that is a list with ";" behind each, of which the last one's may be missing.
    [[nodiscard]] std::vector<std::string> list(std::string_view key) const;

  private:
    [[nodiscard]] std::optional<std::string_view> rawValue(std::string_view key) const;

    std::vector<std::pair<std::string_view, std::string_view>> m_lines;
};

/// The bytes of the file; empty when it cannot be read, is no regular file, or has more than 1 MiB, which no
/// entry comes near.
[[nodiscard]] std::string desktopEntryFileText(const std::string& path);

/// The general escapes of a value: backslash, newline, tab, carriage return, and the blanks at its
/// two ends, which readers cut off.
[[nodiscard]] std::string escapedValue(std::string_view value);
/// The other way. An unknown escape is kept as it stands.
[[nodiscard]] std::string unescapedValue(std::string_view value);

} // namespace quorvi
