// The languages that the user prefers, as the environment names them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

/// The locale names to look for texts in, the preferred one first: those of $LANGUAGE, then the one of the
/// first of $LC_ALL, $LC_MESSAGES and $LANG that is set and not empty (the order of POSIX and of GNU gettext,
/// which ignores $LANGUAGE in the "C" locale). Without codeset and modifier, each once. Nothing after an
/// English one: texts are keyed by their English form, so that a language less wanted than English is never
/// needed. Empty for the "C" and "POSIX" locales.
[[nodiscard]] std::vector<std::string> preferredLanguages();

/// The same with their modifiers, as in "sr_RS@latin": the names by which desktop entries tell languages
/// apart.
[[nodiscard]] std::vector<std::string> preferredLocales();

/// The names of the "*.lproj" folders that serve a locale name, without the extension, the best one first:
/// "pt_BR" gives "pt_BR", "pt-BR", "pt".
[[nodiscard]] std::vector<std::string> localizationNames(std::string_view language);

/// The marks of a desktop entry's texts that serve a locale name, the best one first: "sr_RS@latin" gives
/// "sr_RS@latin", "sr_RS", "sr@latin", "sr" (freedesktop.org, Desktop Entry, "Localized values for keys").
[[nodiscard]] std::vector<std::string> desktopEntryLocales(std::string_view locale);

} // namespace quorvi
