#include "applications/DesktopEntryKeys.h"

#include <algorithm>
#include <array>

#include "platform/Languages.h"
#include "plist/RegularFile.h"

namespace quorvi {

namespace {

constexpr std::uint64_t kLargestEntry = 1U << 20U;

constexpr std::array<std::pair<char, char>, 5> kEscapes{{
    {'\\', '\\'},
    {'\n', 'n'},
    {'\t', 't'},
    {'\r', 'r'},
    {' ', 's'},
}};

template <typename Predicate>
const std::pair<char, char>* findEscape(Predicate&& predicate) {
    const auto* const found = std::find_if(kEscapes.begin(), kEscapes.end(), predicate);
    return found == kEscapes.end() ? nullptr : found;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view takeLine(std::string_view& text) {
    const auto end = std::min(text.find('\n'), text.size());
    const auto line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

/// Removes the list's next element, still escaped, up to an unescaped ";".
std::string_view takeElement(std::string_view& list) {
    std::size_t end = 0;
    while (end < list.size() && list[end] != ';')
        end += list[end] == '\\' ? 2 : 1;
    end = std::min(end, list.size());
    const auto element = list.substr(0, end);
    list.remove_prefix(std::min(end + 1, list.size()));
    return element;
}

/// The additional escape of lists.
std::string withPlainSemicolons(std::string_view element) {
    std::string plain;
    for (std::size_t i = 0; i < element.size(); ++i) {
        if (element[i] == '\\' && i + 1 < element.size()) {
            if (element[i + 1] != ';')
                plain.push_back('\\');
            ++i;
        }
        plain.push_back(element[i]);
    }
    return plain;
}

} // namespace

DesktopEntryKeys::DesktopEntryKeys(std::string_view text) {
    bool inGroup = false;
    while (!text.empty()) {
        const auto line = trimmed(takeLine(text));
        if (line.starts_with('['))
            inGroup = line == kDesktopEntryGroup;
        const auto equals = line.find('=');
        if (inGroup && equals != std::string_view::npos && !line.starts_with('#'))
            m_lines.emplace_back(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }
}

std::optional<std::string_view> DesktopEntryKeys::rawValue(std::string_view key) const {
    const auto line = std::find_if(
        m_lines.begin(), m_lines.end(), [&](const auto& candidate) { return candidate.first == key; });
    return line == m_lines.end() ? std::nullopt : std::optional(line->second);
}

std::optional<std::string> DesktopEntryKeys::value(std::string_view key) const {
    const auto raw = rawValue(key);
    return raw ? std::optional(unescapedValue(*raw)) : std::nullopt;
}

std::optional<std::string> DesktopEntryKeys::localizedValue(
    std::string_view key, const std::vector<std::string>& locales) const {
    for (const auto& locale : locales)
        for (const auto& name : desktopEntryLocales(locale))
            if (auto text = value(std::string(key).append("[").append(name).append("]")))
                return text;
    return value(key);
}

bool DesktopEntryKeys::boolean(std::string_view key) const {
    return rawValue(key) == "true";
}

std::vector<std::string> DesktopEntryKeys::list(std::string_view key) const {
    std::vector<std::string> elements;
    for (auto rest = rawValue(key).value_or(std::string_view()); !rest.empty();)
        elements.push_back(unescapedValue(withPlainSemicolons(takeElement(rest))));
    return elements;
}

std::string desktopEntryFileText(const std::string& path) {
    plist::Data bytes;
    if (plist::readRegularFile(path, kLargestEntry, bytes) != plist::FileStatus::Ok)
        return {};
    return {bytes.begin(), bytes.end()};
}

std::string escapedValue(std::string_view value) {
    const auto first = value.find_first_not_of(' ');
    const auto last = value.find_last_not_of(' ');
    std::string escaped;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool innerBlank = value[i] == ' ' && i > first && i < last;
        const auto* const escape =
            innerBlank ? nullptr
                       : findEscape([&](const auto& candidate) { return candidate.first == value[i]; });
        if (escape)
            escaped.append({'\\', escape->second});
        else
            escaped.push_back(value[i]);
    }
    return escaped;
}

std::string unescapedValue(std::string_view value) {
    std::string plain;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool mayEscape = value[i] == '\\' && i + 1 < value.size();
        const auto* const escape =
            mayEscape ? findEscape([&](const auto& candidate) { return candidate.second == value[i + 1]; })
                      : nullptr;
        plain.push_back(escape ? escape->first : value[i]);
        i += escape ? 1 : 0;
    }
    return plain;
}

} // namespace quorvi
