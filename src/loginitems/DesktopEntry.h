// One login item as the text of an XDG autostart entry (freedesktop.org, Desktop Entry, "Values" and "The
// Exec key").
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

/// A login item in an autostart folder.
struct DesktopEntry {
    std::string applicationPath; ///< the application bundle, in X-KyvarQuorvi-Path
    bool hide = false;           ///< in X-KyvarQuorvi-Hide
    bool disabled = false;       ///< turned off by the user in a desktop's list of autostart entries
};

/// Reads a file of an autostart folder. Returns std::nullopt if it is not ours, that is if its group "Desktop
/// Entry" has no X-KyvarQuorvi-Path.
[[nodiscard]] std::optional<DesktopEntry> parseDesktopEntry(std::string_view text);

/// The text of an entry that runs the executable at that path, without arguments. Returns std::nullopt if a
/// path is empty, is not UTF-8 or holds a control character that an entry cannot represent.
[[nodiscard]] std::optional<std::string> desktopEntryText(
    const DesktopEntry& entry, const std::string& executablePath);

/// The application's displayed name: the last component of its path, without a closing slash and ".app"; "/"
/// for "/".
[[nodiscard]] std::string displayName(std::string_view applicationPath);

} // namespace quorvi
