// Reading the files of game launchers, for the files of this folder.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "applications/games/InstalledGames.h"

namespace quorvi::games {

using Games = std::vector<InstalledGame>;

void addSteamGames(const std::filesystem::path& home, const std::stop_token& stop, Games& games);
void addHeroicGames(const std::filesystem::path& home, const std::stop_token& stop, Games& games);
void addLutrisGames(const std::filesystem::path& home, const std::stop_token& stop, Games& games);

/// Empty if it cannot be read or has more than 16 MiB, twice the size for thousands of games.
[[nodiscard]] std::string textOfFile(const std::filesystem::path& file);
/// The first existing file; empty if none exists.
[[nodiscard]] std::filesystem::path firstThatExists(const std::vector<std::filesystem::path>& files);
/// The folder's files whose names begin and end with these texts, sorted by name. Empty if it does not exist.
[[nodiscard]] std::vector<std::filesystem::path> filesNamed(
    const std::filesystem::path& folder, std::string_view start, std::string_view end);
/// The last part of a path of this system or of Windows, else the other text.
[[nodiscard]] std::string programOr(std::string_view path, std::string_view other);

} // namespace quorvi::games
