#include "applications/games/GameIdentifiers.h"

#include <algorithm>
#include <array>

namespace quorvi::games {

namespace {

constexpr std::string_view kSteamStart = "steam_app_";

bool isNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Steam uses 0 for an unknown game.
bool isGame(std::string_view number) {
    return isNumber(number) && number != "0";
}

void add(std::vector<std::string>& identifiers, std::string identifier) {
    if (std::ranges::find(identifiers, identifier) == identifiers.end())
        identifiers.push_back(std::move(identifier));
}

} // namespace

std::string steamIdentifier(std::string_view number) {
    return std::string(kSteamStart).append(number);
}

std::string_view steamNumber(std::string_view identifier) {
    if (!identifier.starts_with(kSteamStart) || !isGame(identifier.substr(kSteamStart.size())))
        return {};
    return identifier.substr(kSteamStart.size());
}

std::string lutrisIdentifier(std::string_view slug) {
    return std::string("lutris-").append(slug);
}

std::string heroicIdentifier(std::string_view appName) {
    return std::string("heroic-").append(appName);
}

std::vector<std::string> identifiersOfEnvironment(const std::vector<std::string>& environment) {
    std::vector<std::string> identifiers;
    for (const std::string_view variable : environment) {
        const auto equals = std::min(variable.find('='), variable.size());
        const auto name = variable.substr(0, equals);
        const auto value = variable.substr(std::min(equals + 1, variable.size()));
        if ((name == "SteamAppId" || name == "SteamGameId") && isGame(value))
            add(identifiers, steamIdentifier(value));
        else if (name == "HEROIC_APP_NAME" && !value.empty())
            add(identifiers, heroicIdentifier(value));
    }
    return identifiers;
}

std::string steamNumberOfCommand(const std::vector<std::string>& words) {
    constexpr std::string_view start = "AppId=";
    if (std::ranges::find(words, "SteamLaunch") == words.end())
        return {};
    for (const std::string_view word : words)
        if (word.starts_with(start) && isGame(word.substr(start.size())))
            return std::string(word.substr(start.size()));
    return {};
}

std::string_view steamNumberOfLink(std::string_view exec) {
    constexpr std::string_view start = "steam://rungameid/";
    const auto at = exec.find(start);
    if (at == std::string_view::npos)
        return {};
    const auto number = exec.substr(at + start.size());
    return number.substr(0, std::min(number.find_first_not_of("0123456789"), number.size()));
}

} // namespace quorvi::games
