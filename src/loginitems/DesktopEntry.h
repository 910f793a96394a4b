// One log-in item as the text of an XDG autostart entry (freedesktop.org, Desktop Entry, "Values" and "The
// Exec key").
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

/// A log-in item as it lies in an autostart folder.
struct DesktopEntry {
    std::string applicationPath; ///< the application bundle, in X-KyvarQuorvi-Path
    bool hide = false;           ///< in X-KyvarQuorvi-Hide
    bool disabled = false;       ///< switched off by the user, through a desktop's list of autostart entries
};

/// Reads a file of an autostart folder. Nothing when it is not one of ours, that is when its group
/// "Desktop Entry" has no X-KyvarQuorvi-Path: what other programs put there is no item of this list.
[[nodiscard]] std::optional<DesktopEntry> parseDesktopEntry(std::string_view text);

/// The text of an entry that runs the executable at that path, without arguments. Nothing when a path is
/// empty, is not UTF-8 or holds a control character that an entry cannot say.
[[nodiscard]] std::optional<std::string> desktopEntryText(
    const DesktopEntry& entry, const std::string& executablePath);

/// The application's name as a person reads it: the last component of its path, without a closing slash and
/// ".app". "/" has the name "/".
[[nodiscard]] std::string displayName(std::string_view applicationPath);

} // namespace quorvi
