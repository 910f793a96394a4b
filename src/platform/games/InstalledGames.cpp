#include "platform/games/InstalledGames.h"

#include <algorithm>

#include "platform/games/LauncherFiles.h"

namespace quorvi::games {

std::vector<InstalledGame> installedGames(const std::filesystem::path& home) {
    Games games;
    addSteamGames(home, games);
    addHeroicGames(home, games);
    addLutrisGames(home, games);
    std::ranges::stable_sort(games, {}, &InstalledGame::identifier);
    const auto again = std::ranges::unique(games, {}, &InstalledGame::identifier);
    games.erase(again.begin(), again.end());
    std::ranges::stable_sort(games, {}, &InstalledGame::name);
    return games;
}

} // namespace quorvi::games
