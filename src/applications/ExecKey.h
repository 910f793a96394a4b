// The command line of a desktop entry (freedesktop.org, Desktop Entry, "The Exec key"), after the general
// escapes of values are resolved.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

/// The Exec value, before the general escapes, that runs the program at `path`, with no argument: quoted, so
/// that shell and field-code characters in it have no effect.
[[nodiscard]] std::string execLine(std::string_view path);

/// The words of an Exec value, unquoted, with "%%" as "%"; other field codes stay. Text in single quotes is
/// kept unchanged, and a backslash outside of quotes escapes the next character; no entry should need this,
/// but every desktop supports it. Returns std::nullopt if a quote is not closed.
[[nodiscard]] std::optional<std::vector<std::string>> execWords(std::string_view exec);

/// The name of the program that an Exec value starts: its first word, without the folders above it. A leading
/// "env" is skipped: "env A=B /usr/bin/prog" starts "prog". Empty if there is no program.
[[nodiscard]] std::string execProgramName(std::string_view exec);

} // namespace quorvi
