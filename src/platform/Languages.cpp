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

/// "@euro" of "de_DE.UTF-8@euro"
std::string_view modifierOf(std::string_view locale) {
    return locale.substr(std::min(locale.find('@'), locale.size()));
}

/// "de_DE.UTF-8@euro" → "de_DE"
std::string_view withoutCodesetAndModifier(std::string_view locale) {
    return locale.substr(0, locale.find_first_of(".@"));
}

/// "de_DE.UTF-8@euro" → "de_DE@euro"
std::string withoutCodeset(std::string_view locale) {
    return std::string(withoutCodesetAndModifier(locale)).append(modifierOf(locale));
}

void addOnce(std::vector<std::string>& list, std::string name) {
    if (std::find(list.begin(), list.end(), name) == list.end())
        list.push_back(std::move(name));
}

bool isUntranslated(std::string_view language) {
    return language.empty() || language == "C" || language == "POSIX";
}

bool isEnglish(std::string_view language) {
    return language.substr(0, language.find_first_of("_-")) == "en";
}

/// Checks the name, which becomes part of a path.
bool isName(std::string_view language) {
    return language.find('/') == std::string_view::npos;
}

} // namespace

std::vector<std::string> preferredLocales() {
    const auto own = withoutCodeset(messagesLocale());
    if (isUntranslated(withoutCodesetAndModifier(own)))
        return {};
    std::string list(environment("LANGUAGE"));
    list.append(":").append(own);

    std::vector<std::string> locales;
    for (std::string_view rest = list; !rest.empty();) {
        const auto end = std::min(rest.find(':'), rest.size());
        auto locale = withoutCodeset(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        const auto language = withoutCodesetAndModifier(locale);
        if (isUntranslated(language) || !isName(locale))
            continue;
        const bool isLast = isEnglish(language);
        addOnce(locales, std::move(locale));
        if (isLast)
            break;
    }
    return locales;
}

std::vector<std::string> preferredLanguages() {
    std::vector<std::string> languages;
    for (const auto& locale : preferredLocales())
        addOnce(languages, std::string(withoutCodesetAndModifier(locale)));
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

std::vector<std::string> desktopEntryLocales(std::string_view locale) {
    const auto territory = withoutCodesetAndModifier(locale);
    const auto language = territory.substr(0, territory.find('_'));
    const auto modifier = modifierOf(locale);
    std::vector<std::string> names;
    for (const auto name : {territory, language})
        for (const auto mark : {modifier, std::string_view()})
            addOnce(names, std::string(name).append(mark));
    return names;
}

} // namespace quorvi
