#include "platform/Languages.h"

#include <algorithm>
#include <cstdlib>

namespace quorvi {

namespace {

std::string_view environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::string_view(value) : std::string_view();
}

std::string_view messagesLocale() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const auto value = environment(name); !value.empty())
            return value;
    return {};
}

/// "de_DE.UTF-8@euro" → "de_DE"
std::string_view withoutCodeset(std::string_view locale) {
    return locale.substr(0, locale.find_first_of(".@"));
}

bool isUntranslated(std::string_view language) {
    return language.empty() || language == "C" || language == "POSIX";
}

bool isEnglish(std::string_view language) {
    return language.substr(0, language.find_first_of("_-")) == "en";
}

/// A locale name becomes part of a path.
bool isName(std::string_view language) {
    return language.find('/') == std::string_view::npos;
}

} // namespace

std::vector<std::string> preferredLanguages() {
    const auto locale = withoutCodeset(messagesLocale());
    if (isUntranslated(locale))
        return {};
    std::string list(environment("LANGUAGE"));
    list.append(":").append(locale);

    std::vector<std::string> languages;
    for (std::string_view rest = list; !rest.empty();) {
        const auto end = std::min(rest.find(':'), rest.size());
        const auto language = withoutCodeset(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (isUntranslated(language) || !isName(language) ||
            std::find(languages.begin(), languages.end(), language) != languages.end())
            continue;
        languages.emplace_back(language);
        if (isEnglish(language))
            break;
    }
    return languages;
}

std::vector<std::string> localizationNames(std::string_view language) {
    std::vector<std::string> names{std::string(language)};
    const auto separator = language.find_first_of("_-");
    if (separator == std::string_view::npos)
        return names;
    std::string other(language);
    std::replace(other.begin(), other.end(), language[separator], language[separator] == '_' ? '-' : '_');
    names.push_back(std::move(other));
    names.emplace_back(language.substr(0, separator));
    return names;
}

} // namespace quorvi
