#include "pane/loginitems/DesktopEntry.h"

#include <algorithm>
#include <array>
#include <utility>

#include "pane/loginitems/PathText.h"

namespace quorvi {

namespace {

constexpr std::string_view kGroup = "[Desktop Entry]";
constexpr std::string_view kPathKey = "X-KyvarQuorvi-Path";
constexpr std::string_view kHideKey = "X-KyvarQuorvi-Hide";
constexpr std::string_view kHiddenKey = "Hidden";
constexpr std::string_view kEnabledKey = "X-GNOME-Autostart-enabled";
constexpr std::string_view kApplicationExtension = ".app";

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

/// The value of a key in the entry's group, its escapes resolved; the first one when there are several.
std::optional<std::string> valueOf(std::string_view text, std::string_view key) {
    bool inGroup = false;
    while (!text.empty()) {
        const auto line = trimmed(takeLine(text));
        if (line.starts_with('['))
            inGroup = line == kGroup;
        const auto equals = line.find('=');
        if (inGroup && equals != std::string_view::npos && trimmed(line.substr(0, equals)) == key)
            return unescapedValue(trimmed(line.substr(equals + 1)));
    }
    return std::nullopt;
}

bool isSayable(std::string_view value) {
    constexpr std::string_view kSayableControls = "\n\t\r";
    const auto isUnsayable = [&](char c) {
        return (static_cast<unsigned char>(c) < 0x20 && kSayableControls.find(c) == std::string_view::npos) ||
               c == 0x7F;
    };
    return !value.empty() && isUtf8(value) && std::none_of(value.begin(), value.end(), isUnsayable);
}

void addLine(std::string& text, std::string_view key, std::string_view value) {
    text.append(key).append("=").append(escapedValue(value)).append("\n");
}

std::string_view truth(bool value) {
    return value ? "true" : "false";
}

} // namespace

std::optional<DesktopEntry> parseDesktopEntry(std::string_view text) {
    const auto path = valueOf(text, kPathKey);
    if (!path || !isSayable(*path))
        return std::nullopt;
    DesktopEntry entry;
    entry.applicationPath = *path;
    entry.hide = valueOf(text, kHideKey) == truth(true);
    entry.disabled = valueOf(text, kHiddenKey) == truth(true) || valueOf(text, kEnabledKey) == truth(false);
    return entry;
}

std::optional<std::string> desktopEntryText(const DesktopEntry& entry, const std::string& executablePath) {
    if (!isSayable(entry.applicationPath) || !isSayable(executablePath))
        return std::nullopt;
    std::string text(kGroup);
    text.append("\n");
    addLine(text, "Type", "Application");
    addLine(text, "Name", displayName(entry.applicationPath));
    addLine(text, "Exec", execLine(executablePath));
    if (entry.disabled)
        addLine(text, kHiddenKey, truth(true));
    addLine(text, kPathKey, entry.applicationPath);
    addLine(text, kHideKey, truth(entry.hide));
    return text;
}

std::string displayName(std::string_view applicationPath) {
    while (applicationPath.size() > 1 && applicationPath.ends_with('/'))
        applicationPath.remove_suffix(1);
    if (applicationPath.size() > 1)
        applicationPath.remove_prefix(applicationPath.rfind('/') + 1); // npos + 1 is 0: no slash
    if (applicationPath.ends_with(kApplicationExtension) && applicationPath != kApplicationExtension)
        applicationPath.remove_suffix(kApplicationExtension.size());
    return std::string(applicationPath);
}

std::string execLine(std::string_view path) {
    // A program's path must not hold "=", and desktops look for the program before they turn "%%" into "%".
    // An argument may hold both, so such a program is handed to one that changes nothing about it.
    const bool asArgument = path.find_first_of("%=") != std::string_view::npos;
    std::string line(asArgument ? "nice -n 0 \"" : "\"");
    for (const char c : path) {
        if (c == '"' || c == '`' || c == '$' || c == '\\')
            line.push_back('\\');
        else if (c == '%') // would start a field code
            line.push_back('%');
        line.push_back(c);
    }
    line.push_back('"');
    return line;
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
