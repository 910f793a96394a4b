// Where the user's own files lie.
#pragma once

#include <optional>
#include <string>

namespace quorvi {

/// $HOME, else the home folder that the user database names. Nothing when there is neither.
[[nodiscard]] std::optional<std::string> userHomeFolder();

/// The Preferences folder of a home folder.
[[nodiscard]] std::string preferencesFolderIn(const std::string& homeFolder);

/// The autostart folder of a home folder whose user has not set another.
[[nodiscard]] std::string autostartFolderIn(const std::string& homeFolder);

/// $XDG_CONFIG_HOME/autostart, else ~/.config/autostart (freedesktop.org, Desktop Application Autostart; a
/// relative $XDG_CONFIG_HOME is ignored, as the base directories ask for). Nothing without a home folder.
[[nodiscard]] std::optional<std::string> userAutostartFolder();

} // namespace quorvi
