#include "loginitems/DesktopEntry.h"

#include <algorithm>

#include "applications/DesktopEntryKeys.h"
#include "applications/ExecKey.h"
#include "applications/PathName.h"
#include "loginitems/PathText.h"

namespace quorvi {

namespace {

constexpr std::string_view kPathKey = "X-KyvarQuorvi-Path";
constexpr std::string_view kHideKey = "X-KyvarQuorvi-Hide";
constexpr std::string_view kHiddenKey = "Hidden";
constexpr std::string_view kEnabledKey = "X-GNOME-Autostart-enabled";

bool isSayable(std::string_view value) {
    constexpr std::string_view kSayableControls = "\n\t\r";
    const auto isUnsayable = [&](char c) {
        return (static_cast<unsigned char>(c) < 0x20 && kSayableControls.find(c) == std::string_view::npos) ||
               c == 0x7F;
    };
    return !value.empty() && isUtf8(value) && std::none_of(value.begin(), value.end(), isUnsayable);
}

void addLine(std::string& text, std::string_view key, std::string_view value) {
    text.append(key).append("=").append(escapedValue(value)).append("\n");
}

std::string_view truth(bool value) {
    return value ? "true" : "false";
}

} // namespace

std::optional<DesktopEntry> parseDesktopEntry(std::string_view text) {
    const DesktopEntryKeys keys(text);
    const auto path = keys.value(kPathKey);
    if (!path || !isSayable(*path))
        return std::nullopt;
    DesktopEntry entry;
    entry.applicationPath = *path;
    entry.hide = keys.boolean(kHideKey);
    entry.disabled = keys.boolean(kHiddenKey) || keys.value(kEnabledKey) == truth(false);
    return entry;
}

std::optional<std::string> desktopEntryText(const DesktopEntry& entry, const std::string& executablePath) {
    if (!isSayable(entry.applicationPath) || !isSayable(executablePath))
        return std::nullopt;
    std::string text(kDesktopEntryGroup);
    text.append("\n");
    addLine(text, "Type", "Application");
    addLine(text, "Name", displayName(entry.applicationPath));
    addLine(text, "Exec", execLine(executablePath));
    // The entry stays in the home folder when the program is removed; sessions then skip it.
    addLine(text, "TryExec", executablePath);
    if (entry.disabled)
        addLine(text, kHiddenKey, truth(true));
    addLine(text, kPathKey, entry.applicationPath);
    addLine(text, kHideKey, truth(entry.hide));
    return text;
}

std::string displayName(std::string_view applicationPath) {
    return std::string(withoutApplicationExtension(lastComponent(applicationPath)));
}

} // namespace quorvi
