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

/// The names of the "*.lproj" folders that serve a locale name, without the extension, the best one first:
/// "pt_BR" gives "pt_BR", "pt-BR", "pt".
[[nodiscard]] std::vector<std::string> localizationNames(std::string_view language);

} // namespace quorvi
