// The identifiers of games.
#include "applications/games/GameIdentifiers.h"

#include <gtest/gtest.h>

namespace quorvi::test {
namespace {

using namespace games;
using Texts = std::vector<std::string>;

TEST(GameOfSteam, IsKnownByItsNumber) {
    EXPECT_EQ(steamIdentifier("440"), "steam_app_440");
    EXPECT_EQ(steamNumber("steam_app_440"), "440");
    for (const char* none : {"", "440", "steam_app_", "steam_app_0", "steam_app_default", "steam_app_44x"})
        EXPECT_EQ(steamNumber(none), "") << none;
}

TEST(GameOfAProcess, IsSaidByItsEnvironment) {
    EXPECT_EQ(
        identifiersOfEnvironment({"HOME=/", "SteamAppId=440", "SteamGameId=440"}), Texts{"steam_app_440"});
    EXPECT_EQ(identifiersOfEnvironment({"HEROIC_APP_NAME=Quail", "SteamGameId=0"}), Texts{"heroic-Quail"});
    EXPECT_EQ(identifiersOfEnvironment({"SteamAppId", "SteamAppId=", "HEROIC_APP_NAME=", "=", ""}), Texts{});
}

TEST(GameOfAProcess, IsSaidByTheCommandThatSteamStartsItBy) {
    EXPECT_EQ(steamNumberOfCommand({"/s/reaper", "SteamLaunch", "AppId=440", "--", "/g/hats"}), "440");
    EXPECT_EQ(steamNumberOfCommand({"/s/reaper", "AppId=440"}), "");
    EXPECT_EQ(steamNumberOfCommand({"SteamLaunch", "AppId=x"}), "");
    EXPECT_EQ(steamNumberOfCommand({}), "");
}

TEST(SteamNumberOfLink, IsThatOfTheGameThatItStarts) {
    EXPECT_EQ(games::steamNumberOfLink("steam steam://rungameid/440"), "440");
    EXPECT_EQ(games::steamNumberOfLink("/usr/bin/flatpak run com.x steam://rungameid/7 %U"), "7");
    EXPECT_EQ(games::steamNumberOfLink("steam steam://open/440"), "");
    EXPECT_EQ(games::steamNumberOfLink("steam://rungameid/"), "");
    EXPECT_EQ(games::steamNumberOfLink(""), "");
}

} // namespace
} // namespace quorvi::test
