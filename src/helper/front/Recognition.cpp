#include "helper/front/Recognition.h"

#include <algorithm>

#include "applications/games/GameIdentifiers.h"

namespace quorvi::front {

namespace {

template <typename Texts, typename Find>
const DesktopEntry* firstOf(const Texts& texts, Find&& find) {
    for (const auto& text : texts)
        if (const DesktopEntry* entry = find(text))
            return entry;
    return nullptr;
}

/// From its window and its process, unless the class already names the game.
std::vector<std::string> gamesOf(const FrontWindow& window, const ProcessFacts& process) {
    for (const auto& name : {window.windowClass, window.windowName, window.desktopId})
        if (const auto number = games::steamNumber(name); !number.empty())
            return {games::steamIdentifier(number)};
    return process.games;
}

const DesktopEntry* entryOf(const FrontWindow& window, const std::vector<std::string>& gamesOfWindow,
    const DesktopEntries& entries, const ProcessFacts& process) {
    const auto withId = [&](const std::string& id) { return entries.withId(id); };
    const auto withClass = [&](const std::string& name) { return entries.withWindowClass(name); };
    const auto withGame = [&](const std::string& game) {
        return entries.withSteamGame(games::steamNumber(game));
    };
    const auto withProgram = [&](const std::string& program) { return entries.withExecutable(program); };
    if (const auto* game = firstOf(gamesOfWindow, withGame))
        return game;
    if (const auto* named = entries.withId(window.desktopId))
        return named;
    if (const auto* ofClass =
            firstOf(std::vector{window.desktopId, window.windowClass, window.windowName}, withClass))
        return ofClass;
    if (!gamesOfWindow.empty())
        return nullptr; // its launcher's or interpreter's entry would be another application
    if (const auto* ofUnit = firstOf(process.unitIds, withId))
        return ofUnit;
    return firstOf(process.programs, withProgram);
}

} // namespace

FrontApplication recognise(
    const FrontWindow& window, const DesktopEntries& entries, const ProcessFacts& process) {
    FrontApplication application;
    application.windowClass = window.windowClass.empty() ? window.desktopId : window.windowClass;
    application.windowName = window.windowName;
    application.pid = window.pid;
    application.programs = process.programs;
    application.games = gamesOf(window, process);
    if (const auto* entry = entryOf(window, application.games, entries, process)) {
        application.identifier = entry->id;
        application.name = entry->name;
        application.shownName = entry->shownName;
        application.executable = entry->executable;
    } else if (!application.windowClass.empty()) {
        application.shownName = application.windowClass;
    } else if (!process.programs.empty()) {
        application.shownName = process.programs.front();
    }
    return application;
}

} // namespace quorvi::front
