#include "helper/front/DesktopEntries.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "applications/DesktopEntryKeys.h"
#include "applications/ExecKey.h"
#include "applications/games/GameIdentifiers.h"
#include "model/SettingsDocument.h"
#include "platform/Languages.h"

namespace quorvi::front {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kExtension = ".desktop";
constexpr std::size_t kMostEntries = 10000;

std::string variable(const char* name, const std::string& fallback) {
    const char* value = std::getenv(name);
    return value && *value ? value : fallback;
}

std::string_view withoutExtension(std::string_view id) {
    return id.ends_with(kExtension) ? id.substr(0, id.size() - kExtension.size()) : id;
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool equalInAnyCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower, lower);
}

/// The part after the last "." of a name like "org.example.Drawing".
std::string_view lastPart(std::string_view id) {
    return id.substr(id.rfind('.') + 1);
}

std::optional<DesktopEntry> entryOf(
    const fs::path& file, std::string id, const std::vector<std::string>& locales) {
    const std::string text = desktopEntryFileText(file);
    const DesktopEntryKeys keys(text);
    if (keys.value("Type") != "Application" || keys.boolean("Hidden"))
        return std::nullopt;
    const std::string exec = keys.value("Exec").value_or("");
    DesktopEntry entry{std::move(id), keys.value("Name").value_or(""),
        keys.localizedValue("Name", locales).value_or(""), keys.value("StartupWMClass").value_or(""),
        execProgramName(exec), std::string(games::steamNumberOfLink(exec))};
    return entry.name.empty() ? std::nullopt : std::optional(std::move(entry));
}

template <typename Predicate>
const DesktopEntry* find(const std::vector<DesktopEntry>& entries, Predicate&& predicate) {
    const auto found = std::ranges::find_if(entries, predicate);
    return found == entries.end() ? nullptr : &*found;
}

} // namespace

std::vector<fs::path> desktopEntryFolders() {
    const std::string home = homeFolder().string();
    std::vector<fs::path> folders{variable("XDG_DATA_HOME", home + "/.local/share")};
    std::string list = variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
    list += ":" + home +
            "/.local/share/flatpak/exports/share:/var/lib/flatpak/exports/share:/var/lib/snapd/desktop";
    for (std::string_view rest = list; !rest.empty();) {
        const auto end = std::min(rest.find(':'), rest.size());
        if (const fs::path folder(rest.substr(0, end));
            folder.is_absolute() && std::ranges::find(folders, folder) == folders.end())
            folders.push_back(folder);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    for (auto& folder : folders)
        folder /= "applications";
    return folders;
}

void DesktopEntries::refresh() {
    const auto isAsRead = [](const Folder& folder) {
        std::error_code error;
        return fs::last_write_time(folder.path, error) == folder.changed;
    };
    if (m_read.empty() || !std::ranges::all_of(m_read, isAsRead))
        read();
}

void DesktopEntries::read() {
    m_read.clear();
    m_entries.clear();
    std::unordered_set<std::string> ids;
    const auto locales = preferredLocales();
    for (const auto& folder : m_folders)
        readFolder(folder, ids, locales);
    m_entries.shrink_to_fit();
}

void DesktopEntries::readFolder(
    const fs::path& top, std::unordered_set<std::string>& ids, const std::vector<std::string>& locales) {
    std::error_code error;
    // A missing folder has the earliest time until it is created.
    m_read.push_back({top, fs::last_write_time(top, error)});
    const auto options = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator entry(top, options, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path& path = entry->path();
        if (entry->is_directory(error)) {
            m_read.push_back({path, fs::last_write_time(path, error)});
        } else if (path.extension() == kExtension && ids.size() < kMostEntries) {
            std::string id = path.lexically_relative(top).string();
            id.resize(id.size() - kExtension.size());
            std::ranges::replace(id, '/', '-');
            if (!ids.insert(id).second)
                continue; // hidden by one of an earlier folder
            if (auto made = entryOf(path, std::move(id), locales))
                m_entries.push_back(std::move(*made));
        }
        error.clear();
    }
}

const DesktopEntry* DesktopEntries::withId(std::string_view id) const {
    const auto wanted = withoutExtension(id);
    if (wanted.empty())
        return nullptr;
    if (const auto* same = find(m_entries, [&](const auto& entry) { return entry.id == wanted; }))
        return same;
    return find(m_entries, [&](const auto& entry) { return equalInAnyCase(entry.id, wanted); });
}

const DesktopEntry* DesktopEntries::withWindowClass(std::string_view windowClass) const {
    if (windowClass.empty())
        return nullptr;
    if (const auto* said =
            find(m_entries, [&](const auto& entry) { return entry.windowClass == windowClass; }))
        return said;
    if (const auto* named = withId(windowClass))
        return named;
    return find(m_entries, [&](const auto& entry) {
        return entry.id.find('.') != std::string::npos && equalInAnyCase(lastPart(entry.id), windowClass);
    });
}

const DesktopEntry* DesktopEntries::withExecutable(std::string_view executable) const {
    const auto starts = [&](const DesktopEntry& entry) { return entry.executable == executable; };
    return !executable.empty() && std::ranges::count_if(m_entries, starts) == 1 ? find(m_entries, starts)
                                                                                : nullptr;
}

const DesktopEntry* DesktopEntries::withSteamGame(std::string_view number) const {
    return number.empty() ? nullptr
                          : find(m_entries, [&](const auto& entry) { return entry.steamGame == number; });
}

} // namespace quorvi::front
