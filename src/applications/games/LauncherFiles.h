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

/// Empty when it cannot be read or has more than 16 MiB, twice what a library of thousands of games has.
[[nodiscard]] std::string textOfFile(const std::filesystem::path& file);
/// The first that is there; empty when none is.
[[nodiscard]] std::filesystem::path firstThatExists(const std::vector<std::filesystem::path>& files);
/// Those in the folder whose names begin and end so, in the order of their names. None when it is not there.
[[nodiscard]] std::vector<std::filesystem::path> filesNamed(
    const std::filesystem::path& folder, std::string_view start, std::string_view end);
/// The last part of a path of this system or of Windows, else the other text.
[[nodiscard]] std::string programOr(std::string_view path, std::string_view other);

} // namespace quorvi::games
