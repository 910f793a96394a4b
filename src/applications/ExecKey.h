// The command line of a desktop entry (freedesktop.org, Desktop Entry, "The Exec key"), after the general
// escapes of values are resolved.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

/// The Exec value, before the general escapes, that runs the program at `path`, with no argument: quoted, so
/// that no shell or field-code character in it means anything.
[[nodiscard]] std::string execLine(std::string_view path);

/// The words of an Exec value, unquoted, with "%%" as "%"; other field codes stay. Text in single quotes is
/// taken as it stands and a backslash outside of quotes takes the next character, which no entry should need
/// but every desktop understands. Nothing when a quote is not closed.
[[nodiscard]] std::optional<std::vector<std::string>> execWords(std::string_view exec);

/// The name of the program that an Exec value starts: its first word, without the folders above it. An "env"
/// that prepares the surroundings is looked through: "env A=B /usr/bin/prog" starts "prog". Empty when it
/// starts nothing.
[[nodiscard]] std::string execProgramName(std::string_view exec);

} // namespace quorvi
