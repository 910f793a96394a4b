// The kernel's information about the process behind a window.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace quorvi::front {

struct ProcessFacts {
    /// Possible desktop entries of the process, from its systemd unit.
    std::vector<std::string> unitIds;
    /// File names of the program, the most specific first: FrontApplication::programs.
    std::vector<std::string> programs;
    /// FrontApplication::games, from its environment, its command line and its ancestors' command lines.
    std::vector<std::string> games;
};

/// Empty for a process that is gone, another user's, or 0. Reads some kilobytes of /proc.
[[nodiscard]] ProcessFacts factsOf(pid_t process, const std::filesystem::path& proc = "/proc");

/// Possible desktop entries of a systemd unit, the likeliest first; empty for other units. Desktops name them
/// "app-LAUNCHER-ID-NUMBER.scope", "app-ID@NUMBER.service" and the like, with systemd's escapes such as
/// "\x2d" (systemd, "Desktop environment integration").
[[nodiscard]] std::vector<std::string> desktopIdsOfUnit(std::string_view unit);

/// The program's names from its command line and its file; see ProcessFacts::programs.
[[nodiscard]] std::vector<std::string> programNames(
    const std::vector<std::string>& commandLine, std::string_view file);

/// Whether the program only runs another file, so that its own name means nothing: "sh", "python3.11",
/// "wine64-preloader".
[[nodiscard]] bool runsOthers(std::string_view program);

} // namespace quorvi::front
