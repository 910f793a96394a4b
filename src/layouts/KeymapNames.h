// The configured names from which a keymap is built.
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
/// to XKBMODEL, XKBLAYOUT, XKBVARIANT and XKBOPTIONS, with or without quotes. Other lines are skipped.
[[nodiscard]] KeymapNames keymapNamesInText(std::string_view text);

/// The names in XKB_DEFAULT_RULES, _MODEL, _LAYOUT, _VARIANT and _OPTIONS. `variable` returns the value of an
/// environment variable, or null.
[[nodiscard]] KeymapNames keymapNamesInEnvironment(const std::function<const char*(const char*)>& variable);

/// The first names, with missing ones from the second. Layout and variant stay together, because a variant
/// depends on its layout; a variant without a layout is dropped.
[[nodiscard]] KeymapNames mergedKeymapNames(const KeymapNames& first, const KeymapNames& second);

/// This machine's configured names: from the environment, then /etc/default/keyboard, and the layout "us" if
/// neither has one.
[[nodiscard]] KeymapNames configuredKeymapNames();

} // namespace quorvi
