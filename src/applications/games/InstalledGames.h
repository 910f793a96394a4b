// The games that Steam, Heroic and Lutris have installed.
#pragma once

#include <filesystem>
#include <stop_token>
#include <string>
#include <vector>

namespace quorvi::games {

/// What a profile stores of a game is its name, this identifier, no signature, and this executable.
struct InstalledGame {
    std::string name;           ///< as its launcher shows it; never empty
    std::string identifier;     ///< see GameIdentifiers.h; never empty
    std::string executable;     ///< the file name of its program, or of its launcher; never empty
    std::filesystem::path icon; ///< a picture; empty when there is none
    std::string launcher;       ///< what starts it, by its own name: "Steam", "Lutris", "Heroic"
};

/// In the order of their names, each once. Reads the launchers' own files in the home folder, of packages,
/// flatpak and snap, when it is called; what cannot be read is left out. Tools that Steam installs for its
/// games are no games. Ends with what it has when it is told to stop, no later than after the next file.
[[nodiscard]] std::vector<InstalledGame> installedGames(
    const std::filesystem::path& home, const std::stop_token& stop = {});

} // namespace quorvi::games
