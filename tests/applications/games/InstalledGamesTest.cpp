// The games that launchers have installed.
#include "applications/games/InstalledGames.h"

#include <gtest/gtest.h>

#include "applications/games/SteamLibrary.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {
namespace {

namespace fs = std::filesystem;

class GamesOfTheUser : public testing::Test {
  protected:
    void write(const std::string& path, const std::string& text) const {
        fs::create_directories((home / path).parent_path());
        writeFile(home / path, text);
    }
    /// "NAME (IDENTIFIER, EXECUTABLE)" of each.
    [[nodiscard]] std::vector<std::string> listed() const {
        std::vector<std::string> all;
        for (const auto& game : games::installedGames(home.path()))
            all.push_back(game.name + " (" + game.identifier + ", " + game.executable + ")");
        return all;
    }
    using List = std::vector<std::string>;

    TemporaryFolder home;
    fs::path steam = home / ".local/share/Steam";
};

TEST_F(GamesOfTheUser, AreNoneWithoutALauncher) {
    EXPECT_EQ(listed(), List{});
    EXPECT_TRUE(games::installedGames("/nonexistent").empty());
}

TEST_F(GamesOfTheUser, AreThoseInAllLibrariesOfSteam) {
    addSteamGame(steam, "440", "Hats");
    addSteamGame(home / "disk two", "620", "A Portal");
    addSteamGame(home / "old", "70", "Half");
    addSteamGame(home / "not named", "71", "Nowhere");
    write(".local/share/Steam/steamapps/libraryfolders.vdf",
        "\"libraryfolders\"\n{\n\t\"0\"\n\t{\n\t\t\"path\"\t\"" + steam.string() +
            "\"\n\t}\n\t\"1\"\n\t{\n\t\t\"path\"\t\"" + (home / "disk two").string() + "\"\n\t}\n\t\"2\" \"" +
            (home / "old").string() + "\"\n}\n");
    EXPECT_EQ(listed(), (List{"A Portal (steam_app_620, steam)", "Half (steam_app_70, steam)",
                            "Hats (steam_app_440, steam)"}));
}

TEST_F(GamesOfTheUser, AreListedOnceWhenALibraryIsReachedTwice) {
    addSteamGame(steam, "440", "Hats");
    fs::create_directories(home / ".steam");
    fs::create_directory_symlink(steam, home / ".steam/steam");
    EXPECT_EQ(listed(), List{"Hats (steam_app_440, steam)"});
}

TEST_F(GamesOfTheUser, AreNotSteamsToolsAndWhatItOnlyFetches) {
    addSteamGame(steam, "1493710", "Proton Experimental");
    addSteamGame(steam, "1628350", "Steam Linux Runtime 3.0 (sniper)");
    addSteamGame(steam, "228980", "Steamworks Common Redistributables");
    addSteamGame(steam, "1", "Fetched", "1026");
    addSteamGame(steam, "2", "Updated", "6");
    addSteamGame(steam, "3", "");
    addSteamGame(steam, "x", "No number");
    EXPECT_EQ(listed(), List{"Updated (steam_app_2, steam)"});
}

TEST_F(GamesOfTheUser, MayBeOfSteamInItsFlatpak) {
    addSteamGame(home / ".var/app/com.valvesoftware.Steam/.local/share/Steam", "440", "Hats");
    write(".var/app/com.valvesoftware.Steam/.local/share/Steam/appcache/librarycache/440_icon.jpg", "x");
    ASSERT_EQ(listed(), List{"Hats (steam_app_440, steam)"});
    EXPECT_EQ(games::installedGames(home.path())[0].icon.filename(), "440_icon.jpg");
}

TEST_F(GamesOfTheUser, AreThoseOfHeroicsStores) {
    const std::string heroic = ".config/heroic/";
    write(heroic + "legendaryConfig/legendary/installed.json",
        R"({"Quail": {"app_name": "Quail", "title": "Bird", "executable": "Bird\\Bin\\Bird.exe", "install_path": "/g"}})");
    write(heroic + "gog_store/installed.json", R"({"installed": [{"appName": "77", "install_path": "/g/Frog"},
        {"appName": "78", "install_path": "/g/Toad Folder"}]})");
    write(heroic + "store_cache/gog_library.json", R"({"games": [{"app_name": "77", "title": "Frog!"}]})");
    write(heroic + "nile_config/nile/installed.json", R"([{"id": "n1", "path": "/g/Nil"}])");
    write(heroic + "sideload_apps/library.json",
        R"({"games": [{"app_name": "s1", "title": "Side", "install": {"executable": "/g/side/run.sh"}}]})");
    write(heroic + "icons/Quail.png", "x");
    EXPECT_EQ(listed(),
        (List{"Bird (heroic-Quail, Bird.exe)", "Frog! (heroic-77, heroic)", "Nil (heroic-n1, heroic)",
            "Side (heroic-s1, run.sh)", "Toad Folder (heroic-78, heroic)"}));
    EXPECT_EQ(games::installedGames(home.path())[0].icon, home / (heroic + "icons/Quail.png"));
}

TEST_F(GamesOfTheUser, SayWhatStartsThem) {
    addSteamGame(steam, "440", "A");
    write(".local/share/lutris/games/b-1600000000.yml", "game:\n  exe: /g/b\n");
    write(".config/heroic/sideload_apps/library.json", R"({"games": [{"app_name": "c", "title": "C"}]})");
    std::vector<std::string> launchers;
    for (const auto& game : games::installedGames(home.path()))
        launchers.push_back(game.launcher);
    EXPECT_EQ(launchers, (List{"Steam", "Lutris", "Heroic"}));
}

TEST_F(GamesOfTheUser, HaveTheirIconByWhateverNameSteamGivesIt) {
    const std::string cache = ".local/share/Steam/appcache/librarycache/";
    const std::string hash = "0123456789abcdef0123456789abcdef01234567";
    addSteamGame(steam, "440", "Hats");
    write(cache + "440/library_600x900.jpg", "x");
    write(cache + "440/header.jpg", "x");
    EXPECT_EQ(games::installedGames(home.path())[0].icon.filename(), "library_600x900.jpg");
    write(cache + "440/" + hash + ".jpg", "x");
    EXPECT_EQ(games::installedGames(home.path())[0].icon.filename(), hash + ".jpg");
}

TEST_F(GamesOfTheUser, AreNotReadOnWhenNobodyWantsThemAnyMore) {
    addSteamGame(steam, "440", "A");
    write(".local/share/lutris/games/b-1600000000.yml", "game:\n  exe: /g/b\n");
    write(".config/heroic/sideload_apps/library.json", R"({"games": [{"app_name": "c", "title": "C"}]})");
    std::stop_source stop;
    EXPECT_EQ(games::installedGames(home.path(), stop.get_token()).size(), 3U);
    stop.request_stop();
    EXPECT_TRUE(games::installedGames(home.path(), stop.get_token()).empty());
}

TEST_F(GamesOfTheUser, AreThoseOfLutris) {
    write(".local/share/lutris/games/drive-to-win-1600000000.yml",
        "game:\n  args: ''\n  exe: /g/Drive To Win/Drive.exe\n  prefix: /g\nsystem: {}\n");
    write(".config/lutris/games/old-one-15.yml", "game:\n  exe: '/g/old'\nname: \"The Old: One\"\n");
    write(".config/lutris/games/empty-1.yml", "");
    EXPECT_EQ(listed(),
        (List{"Drive To Win (lutris-drive-to-win, Drive.exe)", "The Old: One (lutris-old-one, old)"}));
}

TEST_F(GamesOfTheUser, AreThoseThatADamagedFileStillNames) {
    addSteamGame(steam, "440", "Hats");
    addSteamGame(steam, "441", "Caps");
    const auto file = steam / "steamapps/appmanifest_441.acf";
    const std::string whole = readFile(file);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        writeFile(file, whole.substr(0, size));
        const auto names = listed();
        EXPECT_TRUE(names.size() == 1 || names.size() == 2) << size;
        EXPECT_EQ(names.back(), "Hats (steam_app_440, steam)") << size;
    }
}

} // namespace
} // namespace quorvi::test
