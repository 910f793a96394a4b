// How games are told from each other: by the launcher that they belong to and its own name for them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvi::games {

/// "steam_app_NUMBER", which is also the class of the windows of its games for Windows.
[[nodiscard]] std::string steamIdentifier(std::string_view number);
/// The number of such an identifier or window class; empty when it is none.
[[nodiscard]] std::string_view steamNumber(std::string_view identifier);
[[nodiscard]] std::string lutrisIdentifier(std::string_view slug);
[[nodiscard]] std::string heroicIdentifier(std::string_view appName);

/// The identifiers that a process's environment ("NAME=value") names, each once: those of the launchers are
/// inherited by all that a game starts.
[[nodiscard]] std::vector<std::string> identifiersOfEnvironment(const std::vector<std::string>& environment);

/// The number of the game that Steam starts by this command line; empty when it starts none.
[[nodiscard]] std::string steamNumberOfCommand(const std::vector<std::string>& words);

/// The number of the game that an Exec value of a desktop entry starts, "steam steam://rungameid/NUMBER";
/// empty when it starts none.
[[nodiscard]] std::string_view steamNumberOfLink(std::string_view exec);

} // namespace quorvi::games
