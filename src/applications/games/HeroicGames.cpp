#include <array>
#include <map>

#include "applications/games/GameIdentifiers.h"
#include "applications/games/LauncherFiles.h"
#include "applications/games/TextTree.h"

namespace quorvi::games {

namespace {

namespace fs = std::filesystem;

constexpr std::array kPlaces{".config/heroic", ".var/app/com.heroicgameslauncher.hgl/config/heroic"};

/// The titles of all games of a store, installed or not, for games whose own file has none.
using Titles = std::map<std::string, std::string, std::less<>>;

Titles titlesIn(const TextTree& list) {
    Titles titles;
    for (const auto& [name, game] : list.members)
        titles.emplace(game["app_name"].text, game["title"].text);
    return titles;
}

class Place {
  public:
    Place(fs::path folder, const std::stop_token& stop, Games& games)
        : m_folder(std::move(folder)), m_stop(stop), m_games(games) {}

    void addAll() {
        addThoseOfLegendary();
        addThoseOfNobody();
        addThoseOfGog();
        addThoseOfNile();
    }

  private:
    void addThoseOfLegendary() {
        const auto installed = treeOf("legendaryConfig/legendary/installed.json");
        for (const auto& [id, game] : installed.members)
            add(id, game["title"].text, game["executable"].text);
    }
    void addThoseOfNobody() {
        const auto library = treeOf("sideload_apps/library.json");
        for (const auto& [name, game] : library["games"].members)
            add(game["app_name"].text, game["title"].text, game["install"]["executable"].text);
    }
    void addThoseOfGog() {
        const auto kept = treeOf("store_cache/gog_library.json");
        const auto keptBefore = treeOf("gog_store/library.json");
        auto titles = titlesIn(kept["games"]);
        titles.merge(titlesIn(keptBefore["games"]));
        const auto list = treeOf("gog_store/installed.json");
        for (const auto& [name, game] : list["installed"].members)
            addNamed(titles, game["appName"].text, game["install_path"].text);
    }
    void addThoseOfNile() {
        const auto kept = treeOf("store_cache/nile_library.json");
        const auto titles = titlesIn(kept["library"]);
        const auto list = treeOf("nile_config/nile/installed.json");
        for (const auto& [name, game] : list.members)
            addNamed(titles, game["id"].text, game["path"].text);
    }

    [[nodiscard]] TextTree treeOf(const char* file) const {
        return m_stop.stop_requested() ? TextTree() : readJson(textOfFile(m_folder / file));
    }
    void add(const std::string& id, const std::string& title, std::string_view executable) {
        if (id.empty() || title.empty() || m_stop.stop_requested())
            return;
        const auto icons = m_folder / "icons";
        m_games.push_back({title, heroicIdentifier(id), programOr(executable, "heroic"),
            firstThatExists({icons / (id + ".png"), icons / (id + ".jpg")}), "Heroic"});
    }
    /// A game without a title is named after its folder.
    void addNamed(const Titles& titles, const std::string& id, const std::string& folder) {
        const auto title = titles.find(id);
        add(id, title == titles.end() || title->second.empty() ? programOr(folder, "") : title->second, "");
    }

    fs::path m_folder;
    const std::stop_token& m_stop;
    Games& m_games;
};

} // namespace

void addHeroicGames(const fs::path& home, const std::stop_token& stop, Games& games) {
    for (const char* place : kPlaces)
        Place(home / place, stop, games).addAll();
}

} // namespace quorvi::games
