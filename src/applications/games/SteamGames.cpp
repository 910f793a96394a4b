#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

#include "applications/games/GameIdentifiers.h"
#include "applications/games/LauncherFiles.h"
#include "applications/games/TextTree.h"

namespace quorvi::games {

namespace {

namespace fs = std::filesystem;

constexpr std::array kPlaces{".local/share/Steam", ".steam/steam", ".steam/root",
    ".var/app/com.valvesoftware.Steam/.local/share/Steam", ".var/app/com.valvesoftware.Steam/data/Steam",
    "snap/steam/common/.local/share/Steam"};

/// Whether it is a tool that Steam installs to run games.
bool isTool(std::string_view name) {
    constexpr std::array starts{"Proton ", "Steam Linux Runtime", "Steamworks Common", "SteamVR"};
    return std::ranges::any_of(starts, [&](std::string_view start) { return name.starts_with(start); });
}

/// From an app's state flags; the bit is not set for one still being downloaded.
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

/// Adds the place itself and the folders in its list, under "path" or, in old lists, directly.
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

/// Newer versions of Steam name a game's icon by its hash, of forty digits.
fs::path hashedIconIn(const fs::path& folder) {
    constexpr std::string_view extension = ".jpg";
    constexpr std::size_t digitsOfHash = 40;
    const auto pictures = filesNamed(folder, "", extension);
    const auto found = std::ranges::find_if(pictures, [](const fs::path& picture) {
        const std::string hash = picture.stem();
        return hash.size() == digitsOfHash && hash.find_first_not_of("0123456789abcdef") == std::string::npos;
    });
    return found == pictures.end() ? fs::path() : *found;
}

fs::path iconOf(const fs::path& steam, const std::string& number) {
    const auto cache = steam / "appcache/librarycache";
    return firstThatExists(
        {cache / (number + "_icon.jpg"), cache / number / "icon.jpg", hashedIconIn(cache / number),
            cache / (number + "_library_600x900.jpg"), cache / number / "library_600x900.jpg"});
}

void addGame(const fs::path& steam, const fs::path& manifest, Games& games) {
    const auto tree = readKeyValues(textOfFile(manifest));
    const auto& state = tree["AppState"];
    const auto identifier = steamIdentifier(state["appid"].text);
    const auto& name = state["name"].text;
    if (!steamNumber(identifier).empty() && !name.empty() && !isTool(name) &&
        isInstalled(state["StateFlags"].text))
        games.push_back({name, identifier, "steam", iconOf(steam, state["appid"].text), "Steam"});
}

} // namespace

void addSteamGames(const fs::path& home, const std::stop_token& stop, Games& games) {
    std::vector<fs::path> libraries;
    for (const char* place : kPlaces) {
        const auto steam = home / place;
        // Several kPlaces are usually links to the same folder.
        const auto read = libraries.size();
        addLibraries(libraries, steam);
        for (auto library = libraries.begin() + static_cast<std::ptrdiff_t>(read); library != libraries.end();
             ++library) {
            for (const auto& file : filesNamed(*library / "steamapps", "appmanifest_", ".acf")) {
                if (stop.stop_requested())
                    return;
                addGame(steam, file, games);
            }
        }
    }
}

} // namespace quorvi::games
