#include <algorithm>
#include <array>
#include <charconv>

#include "platform/games/GameIdentifiers.h"
#include "platform/games/LauncherFiles.h"
#include "platform/games/TextTree.h"

namespace quorvi::games {

namespace {

namespace fs = std::filesystem;

constexpr std::array places{".local/share/Steam", ".steam/steam", ".steam/root",
    ".var/app/com.valvesoftware.Steam/.local/share/Steam", ".var/app/com.valvesoftware.Steam/data/Steam",
    "snap/steam/common/.local/share/Steam"};

/// What Steam installs to run games by.
bool isTool(std::string_view name) {
    constexpr std::array starts{"Proton ", "Steam Linux Runtime", "Steamworks Common", "SteamVR"};
    return std::ranges::any_of(starts, [&](std::string_view start) { return name.starts_with(start); });
}

/// Of an app's state flags; one that is only being fetched has the bit not.
bool isInstalled(const std::string& flags) {
    constexpr unsigned fullyInstalled = 4;
    unsigned number = fullyInstalled;
    std::from_chars(flags.data(), flags.data() + flags.size(), number);
    return (number & fullyInstalled) != 0;
}

void addLibrary(std::vector<fs::path>& libraries, const fs::path& folder) {
    std::error_code error;
    const auto real = fs::canonical(folder, error);
    if (!error && std::ranges::find(libraries, real) == libraries.end())
        libraries.push_back(real);
}

/// The place itself and the folders that its list names, by "path" or, in old lists, at once.
void addLibraries(std::vector<fs::path>& libraries, const fs::path& steam) {
    addLibrary(libraries, steam);
    for (const char* file : {"steamapps/libraryfolders.vdf", "config/libraryfolders.vdf"}) {
        const auto tree = readKeyValues(textOfFile(steam / file));
        for (const auto& [number, library] : tree["libraryfolders"].members) {
            const auto& path = library["path"].text.empty() ? library.text : library["path"].text;
            if (fs::path(path).is_absolute())
                addLibrary(libraries, path);
        }
    }
}

fs::path iconOf(const fs::path& steam, const std::string& number) {
    const auto cache = steam / "appcache/librarycache";
    return firstThatExists({cache / (number + "_icon.jpg"), cache / number / "icon.jpg",
        cache / (number + "_library_600x900.jpg"), cache / number / "library_600x900.jpg"});
}

} // namespace

void addSteamGames(const fs::path& home, Games& games) {
    for (const char* place : places) {
        const auto steam = home / place;
        std::vector<fs::path> libraries;
        addLibraries(libraries, steam);
        for (const auto& library : libraries) {
            for (const auto& file : filesNamed(library / "steamapps", "appmanifest_", ".acf")) {
                const auto tree = readKeyValues(textOfFile(file));
                const auto& state = tree["AppState"];
                const auto identifier = steamIdentifier(state["appid"].text);
                const auto& name = state["name"].text;
                if (!steamNumber(identifier).empty() && !name.empty() && !isTool(name) &&
                    isInstalled(state["StateFlags"].text))
                    games.push_back({name, identifier, "steam", iconOf(steam, state["appid"].text)});
            }
        }
    }
}

} // namespace quorvi::games
