#include "loginitems/UserFolders.h"

#include <cstdlib>
#include <string_view>

#include "model/SettingsDocument.h"

namespace quorvi {

namespace {

std::string_view environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::string_view(value) : std::string_view();
}

} // namespace

std::optional<std::string> userHomeFolder() {
    const auto home = homeFolder();
    return home.empty() ? std::nullopt : std::optional(home.string());
}

std::string preferencesFolderIn(const std::string& homeFolder) {
    return homeFolder + "/Library/Preferences";
}

std::string autostartFolderIn(const std::string& homeFolder) {
    return homeFolder + "/.config/autostart";
}

std::optional<std::string> userAutostartFolder() {
    if (const auto config = environment("XDG_CONFIG_HOME"); config.starts_with('/'))
        return std::string(config) + "/autostart";
    if (const auto home = userHomeFolder())
        return autostartFolderIn(*home);
    return std::nullopt;
}

} // namespace quorvi
