// What the kernel says of the process behind a window.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace quorvi::front {

struct ProcessFacts {
    /// Names of desktop entries that the process may be of, by the systemd unit that it runs in.
    std::vector<std::string> unitIds;
    /// File names of the program, the most telling first: FrontApplication::programs.
    std::vector<std::string> programs;
    /// FrontApplication::games, by its environment and by the command lines of it and of what started it.
    std::vector<std::string> games;
};

/// Empty for a process that is gone, of another user, or 0. Reads some kilobytes of /proc.
[[nodiscard]] ProcessFacts factsOf(pid_t process, const std::filesystem::path& proc = "/proc");

/// The names of desktop entries that a systemd unit may be of, the likelier first; none for other units. A
/// desktop names them "app-LAUNCHER-ID-NUMBER.scope", "app-ID@NUMBER.service" and the like, with what systemd
/// escapes as "\x2d" (systemd, "Desktop environment integration").
[[nodiscard]] std::vector<std::string> desktopIdsOfUnit(std::string_view unit);

/// The names of the program by its command line and by the file that runs; see ProcessFacts::programs.
[[nodiscard]] std::vector<std::string> programNames(
    const std::vector<std::string>& commandLine, std::string_view file);

/// Whether the program only runs what is in another file, so that its own name says nothing: "sh",
/// "python3.11", "wine64-preloader".
[[nodiscard]] bool runsOthers(std::string_view program);

} // namespace quorvi::front
