// The folders of the user's own files.
#pragma once

#include <optional>
#include <string>

namespace quorvi {

/// $HOME, else the home folder in the user database; std::nullopt if there is neither.
[[nodiscard]] std::optional<std::string> userHomeFolder();

/// The Preferences folder of a home folder.
[[nodiscard]] std::string preferencesFolderIn(const std::string& homeFolder);

/// The default autostart folder of a home folder.
[[nodiscard]] std::string autostartFolderIn(const std::string& homeFolder);

/// $XDG_CONFIG_HOME/autostart, else ~/.config/autostart (freedesktop.org, Desktop Application Autostart; a
/// relative $XDG_CONFIG_HOME is ignored, as the base directories require). std::nullopt without a home
/// folder.
[[nodiscard]] std::optional<std::string> userAutostartFolder();

} // namespace quorvi
