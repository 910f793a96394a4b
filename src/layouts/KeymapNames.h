// The names that a keymap is built from, as the system is configured.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quorvi {

/// Rules, model, layouts, variants and options of the X keyboard extension (xkeyboard-config(7)). Empty means
/// not configured.
struct KeymapNames {
    std::string rules;
    std::string model;
    std::string layout;  ///< separated by commas, the first is the active one
    std::string variant; ///< one for each layout
    std::string options;

    bool operator==(const KeymapNames&) const = default;
};

/// The names in the text of the console's and display server's configuration, keyboard(5): shell assignments
/// to XKBMODEL, XKBLAYOUT, XKBVARIANT and XKBOPTIONS, with or without quotes. Other lines are passed over.
[[nodiscard]] KeymapNames keymapNamesInText(std::string_view text);

/// The names in XKB_DEFAULT_RULES, _MODEL, _LAYOUT, _VARIANT and _OPTIONS. The function gives the value of an
/// environment variable, null when it is not set.
[[nodiscard]] KeymapNames keymapNamesInEnvironment(const std::function<const char*(const char*)>& variable);

/// The first names, and the second ones for what the first leave open. Layout and variant go together, since
/// a variant means nothing without its layout; a variant without a layout is dropped.
[[nodiscard]] KeymapNames mergedKeymapNames(const KeymapNames& first, const KeymapNames& second);

/// The names that this machine is configured with: the environment before /etc/default/keyboard, and the
/// layout "us" when neither names one.
[[nodiscard]] KeymapNames configuredKeymapNames();

} // namespace quorvi
