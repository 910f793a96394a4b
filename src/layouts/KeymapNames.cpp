#include "layouts/KeymapNames.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace quorvi {

namespace {

constexpr const char* kConfigurationFile = "/etc/default/keyboard";
constexpr std::string_view kBlanks = " \t\r";

struct Field {
    std::string KeymapNames::*member;
    const char* environmentVariable;
    std::string_view assignment; // empty: not in the file
};

constexpr std::array<Field, 5> kFields{{
    {&KeymapNames::rules, "XKB_DEFAULT_RULES", ""},
    {&KeymapNames::model, "XKB_DEFAULT_MODEL", "XKBMODEL"},
    {&KeymapNames::layout, "XKB_DEFAULT_LAYOUT", "XKBLAYOUT"},
    {&KeymapNames::variant, "XKB_DEFAULT_VARIANT", "XKBVARIANT"},
    {&KeymapNames::options, "XKB_DEFAULT_OPTIONS", "XKBOPTIONS"},
}};

/// The value after "NAME=", up to the closing quote, or a blank or comment.
std::string_view unquoted(std::string_view value) {
    if (!value.empty() && (value.front() == '"' || value.front() == '\'')) {
        const char quote = value.front();
        value.remove_prefix(1);
        return value.substr(0, value.find(quote));
    }
    return value.substr(0, value.find_first_of(" \t\r#"));
}

void readLine(std::string_view line, KeymapNames& names) {
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    const std::size_t equals = line.find('=');
    if (equals == 0 || equals == std::string_view::npos)
        return;
    for (const Field& field : kFields)
        if (field.assignment == line.substr(0, equals))
            names.*field.member = unquoted(line.substr(equals + 1));
}

std::string contentOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace

KeymapNames keymapNamesInText(std::string_view text) {
    KeymapNames names;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        readLine(text.substr(0, end), names);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return names;
}

KeymapNames keymapNamesInEnvironment(const std::function<const char*(const char*)>& variable) {
    KeymapNames names;
    for (const Field& field : kFields)
        if (const char* value = variable(field.environmentVariable))
            names.*field.member = value;
    return names;
}

KeymapNames mergedKeymapNames(const KeymapNames& first, const KeymapNames& second) {
    const KeymapNames& layoutFrom = first.layout.empty() ? second : first;
    const auto either = [](const std::string& a, const std::string& b) { return a.empty() ? b : a; };
    return {either(first.rules, second.rules), either(first.model, second.model), layoutFrom.layout,
        layoutFrom.layout.empty() ? std::string() : layoutFrom.variant,
        either(first.options, second.options)};
}

KeymapNames configuredKeymapNames() {
    const KeymapNames environment =
        keymapNamesInEnvironment([](const char* name) { return std::getenv(name); });
    KeymapNames names = mergedKeymapNames(environment, keymapNamesInText(contentOf(kConfigurationFile)));
    if (names.layout.empty())
        names.layout = "us";
    return names;
}

} // namespace quorvi
