// Identifiers of games: the launcher and its own name for the game.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvi::games {

/// "steam_app_NUMBER", which is also the class of the windows of its games for Windows.
[[nodiscard]] std::string steamIdentifier(std::string_view number);
/// The number in such an identifier or window class; empty for any other text.
[[nodiscard]] std::string_view steamNumber(std::string_view identifier);
[[nodiscard]] std::string lutrisIdentifier(std::string_view slug);
[[nodiscard]] std::string heroicIdentifier(std::string_view appName);

/// The identifiers in a process's environment ("NAME=value"), each once: all processes of a game inherit its
/// launcher's variables.
[[nodiscard]] std::vector<std::string> identifiersOfEnvironment(const std::vector<std::string>& environment);

/// The number of the game that Steam starts with this command line; empty for none.
[[nodiscard]] std::string steamNumberOfCommand(const std::vector<std::string>& words);

/// The number of the game that an Exec value of a desktop entry starts, "steam steam://rungameid/NUMBER";
/// empty for none.
[[nodiscard]] std::string_view steamNumberOfLink(std::string_view exec);

} // namespace quorvi::games
