// Profiles that are bound to games of Steam.
#include "applications/games/GameIdentifiers.h"
#include "applications/games/InstalledGames.h"
#include "applications/games/SteamLibrary.h"
#include "base/Unicode.h"
#include "helper/front/FollowingHelper.h"
#include "helper/front/X11Display.h"
#include "model/Trees.h"
#include "plist/Writer.h"
#include "support/Files.h"
#include "support/WaitUntil.h"

namespace quorvi::test {
namespace {

constexpr int kNumberOfGames = 20;
constexpr std::size_t kBoundAtOnce = 4; // the first of five profiles is the user's own

class GamesInFront : public FollowingHelper {
  protected:
    GamesInFront() {
        for (int i = 0; i < kNumberOfGames; ++i)
            addSteamGame(
                folder / ".local/share/Steam", std::to_string(1000 + i), "Game " + std::to_string(1000 + i));
    }
    /// Profiles 2 to 5 are bound to the games as the panel stores them.
    void bindGames(std::span<const games::InstalledGame> some) {
        auto profiles = list({test::profile(u"Own")});
        for (const auto& game : some) {
            auto made = test::profile(u"Game");
            made.set("driver",
                dict({{"application", toUtf16(game.name)}, {"identifier", toUtf16(game.identifier)},
                    {"signature", u""}, {"executable", toUtf16(game.executable)}, {"autoswitch", true}}));
            profiles.append(made);
        }
        auto made = tree(profiles, list());
        made.set("settings", dict({{"profileid", 1}, {"stage", 1}, {"dpix", 400}, {"dpiy", 400}}));
        writeFile(userSettings, plist::writeXml(dict({{"quorvi", made}})).value());
        EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    }
    /// Of a game for Windows, whose window's class says it; or of a native one, which only its process knows.
    void expectToRunIn(const games::InstalledGame& game, bool forWindows, std::uint32_t wanted) {
        const auto number = std::string(games::steamNumber(game.identifier));
        const ChildProcess native({"sleep", "1000"}, {"SteamAppId=" + number, "SteamGameId=" + number});
        // A game opens windows when it runs, not while it is still what started it.
        const auto environment = "/proc/" + std::to_string(native.pid()) + "/environ";
        ASSERT_TRUE(waitUntil(
            [&] { return readFile(environment).find("SteamAppId=" + number) != std::string::npos; }));
        const auto window = forWindows ? display.windows().open(game.identifier)
                                       : display.windows().open("native", "native", native.pid());
        EXPECT_TRUE(comesToRun(wanted)) << game.name;
        (void)display.windows().open(other);
        EXPECT_TRUE(comesToRun(usersOwn)) << game.name;
        display.windows().close(window);
    }

    X11Display display{folder.path()};
};

TEST_F(GamesInFront, AreListedBoundAndFollowed) {
    surroundings = {"DISPLAY=" + display.name()};
    start();
    const auto all = games::installedGames(folder.path());
    ASSERT_EQ(all.size(), static_cast<std::size_t>(kNumberOfGames));
    for (std::size_t first = 0; first < all.size(); first += kBoundAtOnce) {
        bindGames(std::span(all).subspan(first, kBoundAtOnce));
        for (std::size_t i = 0; i < kBoundAtOnce; ++i)
            expectToRunIn(all[first + i], i % 2 == 0, static_cast<std::uint32_t>(i + 2));
    }
}

} // namespace
} // namespace quorvi::test
