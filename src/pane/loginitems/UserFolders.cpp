#include "pane/loginitems/UserFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>
#include <vector>

namespace quorvi {

namespace {

std::string_view environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::string_view(value) : std::string_view();
}

std::optional<std::string> homeFromUserDatabase() {
    constexpr std::size_t kRecordSize = 16384;
    std::vector<char> buffer(kRecordSize);
    passwd record{};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &record, buffer.data(), buffer.size(), &found) != 0 || !found ||
        !record.pw_dir || !*record.pw_dir)
        return std::nullopt;
    return std::string(record.pw_dir);
}

} // namespace

std::optional<std::string> userHomeFolder() {
    if (const auto home = environment("HOME"); !home.empty())
        return std::string(home);
    return homeFromUserDatabase();
}

std::string preferencesFolderIn(const std::string& homeFolder) {
    return homeFolder + "/Library/Preferences";
}

std::optional<std::string> userAutostartFolder() {
    if (const auto config = environment("XDG_CONFIG_HOME"); config.starts_with('/'))
        return std::string(config) + "/autostart";
    if (const auto home = userHomeFolder())
        return *home + "/.config/autostart";
    return std::nullopt;
}

} // namespace quorvi
