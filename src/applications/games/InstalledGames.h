// The games that Steam, Heroic and Lutris have installed.
#pragma once

#include <filesystem>
#include <stop_token>
#include <string>
#include <vector>

namespace quorvi::games {

/// A profile stores a game's name, identifier and executable, and no signature.
struct InstalledGame {
    std::string name;           ///< the name in its launcher; never empty
    std::string identifier;     ///< see GameIdentifiers.h; never empty
    std::string executable;     ///< the file name of its program, or of its launcher; never empty
    std::filesystem::path icon; ///< a picture; may be empty
    std::string launcher;       ///< its launcher's name: "Steam", "Lutris", "Heroic"
};

/// In the order of their names, each once. Reads the launchers' own files in the home folder, from packages,
/// flatpak and snap; skips unreadable ones. Steam's tools for games do not count as games. If stopped,
/// returns the games read so far, at the latest after the next file.
[[nodiscard]] std::vector<InstalledGame> installedGames(
    const std::filesystem::path& home, const std::stop_token& stop = {});

} // namespace quorvi::games
