// The user's preferred languages, from the environment.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

/// The locale names to look for texts in, the preferred one first: those of $LANGUAGE, then the one of the
/// first of $LC_ALL, $LC_MESSAGES and $LANG that is set and not empty (the order of POSIX and of GNU gettext,
/// which ignores $LANGUAGE in the "C" locale). Without codeset and modifier, each once. The list ends at an
/// English one: keys are English texts, so less preferred languages are never needed. Empty for the "C" and
/// "POSIX" locales.
[[nodiscard]] std::vector<std::string> preferredLanguages();

/// The same with their modifiers, as in "sr_RS@latin": the form used by desktop entries.
[[nodiscard]] std::vector<std::string> preferredLocales();

/// The names of the "*.lproj" folders for a locale name, without the extension, the best one first: "pt_BR",
/// "pt-BR", "pt" for "pt_BR".
[[nodiscard]] std::vector<std::string> localizationNames(std::string_view language);

/// The locale keys of a desktop entry for a locale name, the best one first: "sr_RS@latin", "sr_RS",
/// "sr@latin", "sr" for "sr_RS@latin" (freedesktop.org, Desktop Entry, "Localized values for keys").
[[nodiscard]] std::vector<std::string> desktopEntryLocales(std::string_view locale);

} // namespace quorvi
