#include "helper/front/ProcessFacts.h"

#include <algorithm>
#include <array>
#include <charconv>

#include <fcntl.h>
#include <unistd.h>

#include "applications/PathName.h"
#include "applications/games/GameIdentifiers.h"

namespace quorvi::front {

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

constexpr std::size_t kLongestFile = 256 * 1024;
constexpr int kMostParents = 8;

/// Files in /proc report no size.
std::string textOf(const fs::path& file) {
    std::string text;
    const int fd = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return text;
    std::array<char, 4096> buffer;
    for (ssize_t size = 0; text.size() < kLongestFile && (size = read(fd, buffer.data(), buffer.size())) > 0;)
        text.append(buffer.data(), static_cast<std::size_t>(size));
    close(fd);
    return text;
}

Texts partsOf(std::string_view text, char separator) {
    Texts parts;
    while (!text.empty()) {
        const auto end = std::min(text.find(separator), text.size());
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

void add(Texts& texts, std::string text) {
    if (!text.empty() && std::ranges::find(texts, text) == texts.end())
        texts.push_back(std::move(text));
}

/// "\x2d" is "-", and so on.
std::string unescaped(std::string_view name) {
    std::string plain;
    while (!name.empty()) {
        unsigned char c = 0;
        if (name.starts_with("\\x") && name.size() >= 4 &&
            std::from_chars(name.data() + 2, name.data() + 4, c, 16).ptr == name.data() + 4) {
            plain.push_back(static_cast<char>(c));
            name.remove_prefix(4);
        } else {
            plain.push_back(name.front());
            name.remove_prefix(1);
        }
    }
    return plain;
}

bool takeEnd(std::string_view& text, std::string_view end) {
    if (!text.ends_with(end))
        return false;
    text.remove_suffix(end.size());
    return true;
}

/// The last application unit in the process's path; a unit may have its own subgroups.
Texts unitIdsOf(const fs::path& folder) {
    const auto groups = partsOf(textOf(folder / "cgroup"), '/');
    for (auto unit = groups.rbegin(); unit != groups.rend(); ++unit) {
        std::string_view name = *unit;
        takeEnd(name, "\n");
        if (auto ids = desktopIdsOfUnit(name); !ids.empty())
            return ids;
    }
    return {};
}

bool isOfWindows(std::string_view program) {
    return program.ends_with(".exe") || program.ends_with(".EXE");
}

/// Handles "C:\Games\Drawing.exe" and "/games/Drawing.exe".
std::string fileName(std::string_view path) {
    if (const auto backslash = path.rfind('\\'); isOfWindows(path) && backslash != std::string_view::npos)
        path.remove_prefix(backslash + 1);
    return std::string(lastComponent(path));
}

pid_t parentOf(const fs::path& folder) {
    constexpr std::string_view line = "\nPPid:\t";
    const std::string status = textOf(folder / "status");
    const auto at = status.find(line);
    pid_t parent = 0;
    if (at != std::string::npos)
        std::from_chars(status.data() + at + line.size(), status.data() + status.size(), parent);
    return parent;
}

/// Steam starts each game through a program whose command line has the game's number, and which waits for its
/// end.
std::string steamGameOfParents(pid_t process, const fs::path& proc) {
    for (int i = 0; i < kMostParents && process > 1; ++i) {
        const fs::path folder = proc / std::to_string(process);
        const auto words = partsOf(textOf(folder / "cmdline"), '\0');
        if (auto number = games::steamNumberOfCommand(words); !number.empty())
            return number;
        process = parentOf(folder);
    }
    return {};
}

} // namespace

bool runsOthers(std::string_view program) {
    constexpr std::array names{"sh", "bash", "dash", "zsh", "env", "flatpak", "python", "perl", "ruby",
        "java", "node", "gjs", "mono", "electron", "wine"};
    takeEnd(program, "preloader");
    return std::ranges::any_of(names, [&](std::string_view name) {
        return program.starts_with(name) &&
               program.find_first_not_of("0123456789.-", name.size()) == std::string_view::npos;
    });
}

std::vector<std::string> desktopIdsOfUnit(std::string_view unit) {
    Texts ids;
    std::string_view name = unit;
    const bool isScope = takeEnd(name, ".scope");
    if (!isScope && !takeEnd(name, ".service") && !takeEnd(name, ".slice"))
        return ids;
    if (name.starts_with("snap.")) { // snap.NAME.COMMAND-NUMBER, whose entry is NAME_COMMAND
        auto words = partsOf(name.substr(0, name.find('-')), '.');
        if (words.size() == 3)
            ids.push_back(words[1] + "_" + words[2]);
        return ids;
    }
    constexpr std::string_view start = "app-";
    if (!name.starts_with(start))
        return ids;
    name.remove_prefix(start.size());
    if (isScope)
        name = name.substr(0, name.rfind('-'));
    else
        name = name.substr(0, name.find('@'));
    if (const auto launcher = name.rfind('-'); launcher != std::string_view::npos)
        add(ids, unescaped(name.substr(launcher + 1)));
    add(ids, unescaped(name));
    return ids;
}

std::vector<std::string> programNames(const std::vector<std::string>& commandLine, std::string_view file) {
    Texts names;
    constexpr std::string_view deleted = " (deleted)"; // appended when an update replaces a running program
    takeEnd(file, deleted);
    const std::string running = fileName(file);
    const bool tells = !runsOthers(running);
    if (tells && !commandLine.empty() && isOfWindows(commandLine.front()))
        add(names, fileName(commandLine.front()));
    if (!tells)
        for (const auto& word : commandLine)
            if (!word.starts_with('-') && !runsOthers(fileName(word))) {
                add(names, fileName(word));
                break;
            }
    add(names, running);
    if (!commandLine.empty())
        add(names, fileName(commandLine.front()));
    return names;
}

ProcessFacts factsOf(pid_t process, const fs::path& proc) {
    ProcessFacts facts;
    if (process <= 0)
        return facts;
    const fs::path folder = proc / std::to_string(process);
    facts.unitIds = unitIdsOf(folder);
    std::error_code error;
    const auto file = fs::read_symlink(folder / "exe", error);
    facts.programs = programNames(partsOf(textOf(folder / "cmdline"), '\0'), file.native());
    facts.games = games::identifiersOfEnvironment(partsOf(textOf(folder / "environ"), '\0'));
    if (facts.games.empty())
        if (const auto number = steamGameOfParents(process, proc); !number.empty())
            facts.games.push_back(games::steamIdentifier(number));
    return facts;
}

} // namespace quorvi::front
