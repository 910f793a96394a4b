#include "model/SettingsDocument.h"

#include <cerrno>
#include <cstdlib>
#include <vector>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "model/CommandCodes.h"
#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Lookups.h"

namespace quorvi {

namespace {

namespace fs = std::filesystem;
using plist::Array;
using plist::Dictionary;

constexpr auto kPreferencesFolder = "Library/Preferences";
constexpr auto kSettingsFile = "com.kyvar.quorvi.settings.plist";

fs::path passwordDatabaseHome() {
    constexpr std::size_t roomForEntry = 16384;
    std::vector<char> buffer(roomForEntry);
    struct passwd entry = {};
    struct passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found ||
        !found->pw_dir)
        return {};
    return found->pw_dir;
}

bool isDangling(const Dictionary& assignment, const Array& profiles, const Array& macros) {
    const auto target = assignment.integer(keys::param1);
    switch (assignment.integer(keys::command)) {
    case commands::runMacro:
        return KyvarFindMacroInArray(target, nullptr, macros) < 0;
    case commands::switchToProfile:
        return target < 1 || static_cast<std::size_t>(target) > profiles.size();
    default:
        return false;
    }
}

/// Creates and syncs only the two folders that the platform is expected to have, not a missing home folder.
/// Returns 0 or an errno.
int createPreferencesFolder(const fs::path& file, FileCalls& calls) {
    constexpr mode_t ownerOnly = 0700;
    const auto preferences = file.parent_path();
    if (preferences.empty() || ::access(preferences.c_str(), F_OK) == 0)
        return 0;
    for (const auto& folder : {preferences.parent_path(), preferences}) {
        if (folder.empty())
            continue;
        const bool made = ::mkdir(folder.c_str(), ownerOnly) == 0;
        if (made ? !syncFolder(folder.parent_path(), calls) : errno != EEXIST)
            return errno;
    }
    return 0;
}

} // namespace

fs::path homeFolder() {
    const char* home = std::getenv("HOME");
    return home && *home ? fs::path(home) : passwordDatabaseHome();
}

fs::path userSettingsPath(const fs::path& home) {
    return home.empty() ? fs::path() : home / kPreferencesFolder / kSettingsFile;
}

Dictionary getDefaultSettings(const fs::path& defaults) {
    return storedTree(keys::storage, defaults);
}

Dictionary loadSettings(const fs::path& userSettings, const fs::path& defaults) {
    return KyvarLoadConfigFromFile(keys::storage, limits::minimumVersion, userSettings, defaults);
}

void cleanUpSettings(const Dictionary& tree) {
    const auto profiles = tree.array(keys::profiles);
    const auto macros = tree.array(keys::macros);
    for (const auto& profile : profiles.items()) {
        const auto buttons = profile.dictionary().dictionary(keys::buttons);
        for (int number = 1; number <= limits::buttons; ++number) {
            const auto assignment = buttons.dictionary(keys::button(number));
            if (!isDangling(assignment, profiles, macros))
                continue;
            assignment.removeAll();
            assignment.set(keys::command, commands::noFunction);
        }
    }
}

bool saveSettings(
    const Dictionary& tree, const fs::path& userSettings, FileCalls& calls, Durability durability) {
    ConfigFile file(keys::storage, userSettings, calls);
    return saveSettings(tree, file, durability);
}

ConfigFile userSettingsFile(const fs::path& home, FileCalls& calls) {
    return {keys::storage, userSettingsPath(home), calls};
}

Dictionary loadSettings(ConfigFile& userSettings, const fs::path& defaults) {
    return userSettings.load(limits::minimumVersion, defaults);
}

bool othersChangedSettings(ConfigFile& userSettings) {
    return userSettings.holdsAnotherTree(limits::minimumVersion);
}

bool saveSettings(const Dictionary& tree, ConfigFile& userSettings, Durability durability) {
    const int error = tree ? createPreferencesFolder(userSettings.path(), userSettings.calls()) : 0;
    return error == 0 ? userSettings.save(tree, durability) : userSettings.fail(error);
}

} // namespace quorvi
