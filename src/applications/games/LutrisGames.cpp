#include <array>

#include "applications/games/GameIdentifiers.h"
#include "applications/games/LauncherFiles.h"

namespace quorvi::games {

namespace {

namespace fs = std::filesystem;

constexpr std::array kPlaces{".local/share/lutris/games", ".config/lutris/games",
    ".var/app/net.lutris.Lutris/data/lutris/games", ".var/app/net.lutris.Lutris/config/lutris/games"};
constexpr std::string_view kExtension = ".yml";

/// The plain value of a line "key: value" with that indentation; without quotes around it.
std::string valueOf(std::string_view text, std::string_view key) {
    const auto start = std::string("\n").append(key).append(": ");
    const auto lines = std::string("\n").append(text);
    const auto at = lines.find(start);
    if (at == std::string::npos)
        return {};
    std::string value = lines.substr(at + start.size(), lines.find('\n', at + 1) - at - start.size());
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
        value = value.substr(1, value.size() - 2);
    return value;
}

/// "drive-to-win" becomes "Drive To Win".
std::string readableName(std::string_view slug) {
    std::string name;
    bool first = true;
    for (const char c : slug) {
        name.push_back(c == '-' ? ' ' : first && c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c);
        first = c == '-';
    }
    return name;
}

/// File names consist of the game and its time of installation: "drive-to-win-1600000000.yml".
std::string slugOf(const fs::path& file) {
    std::string slug = file.stem();
    const auto time = slug.find_last_not_of("0123456789");
    if (time != std::string::npos && time + 1 < slug.size() && slug[time] == '-')
        slug.resize(time);
    return slug;
}

} // namespace

void addLutrisGames(const fs::path& home, const std::stop_token& stop, Games& games) {
    for (const char* place : kPlaces) {
        for (const auto& file : filesNamed(home / place, "", kExtension)) {
            if (stop.stop_requested())
                return;
            const std::string text = textOfFile(file);
            const std::string slug = slugOf(file);
            const std::string said = valueOf(text, "name");
            if (slug.empty() || text.empty())
                continue;
            games.push_back({said.empty() ? readableName(slug) : said, lutrisIdentifier(slug),
                programOr(valueOf(text, "  exe"), "lutris"),
                firstThatExists(
                    {home / ".local/share/icons/hicolor/128x128/apps" / ("lutris_" + slug + ".png")}),
                "Lutris"});
        }
    }
}

} // namespace quorvi::games
