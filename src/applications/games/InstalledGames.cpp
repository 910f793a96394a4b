#include "applications/games/InstalledGames.h"

#include <algorithm>

#include "applications/games/LauncherFiles.h"

namespace quorvi::games {

std::vector<InstalledGame> installedGames(const std::filesystem::path& home, const std::stop_token& stop) {
    Games games;
    addSteamGames(home, stop, games);
    addHeroicGames(home, stop, games);
    addLutrisGames(home, stop, games);
    std::ranges::stable_sort(games, {}, &InstalledGame::identifier);
    const auto isAgain = [](const InstalledGame& one, const InstalledGame& next) {
        return one.identifier == next.identifier;
    };
    games.erase(std::unique(games.begin(), games.end(), isAgain), games.end());
    std::ranges::stable_sort(games, {}, &InstalledGame::name);
    return games;
}

} // namespace quorvi::games
