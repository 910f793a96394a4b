// The colours of themes, as palettes.
#pragma once

#include <QPalette>
#include <QString>

#include <algorithm>
#include <iterator>

namespace quorvi::test {

struct Theme {
    const char* name;
    const char* window;
    const char* base;
    const char* button;
    const char* text;
    const char* highlight;
    const char* highlightedText;
    bool highContrast;
};

/// The first four as these styles and desktops have them.
inline constexpr Theme kThemes[] = {
    {"Fusion", "#efefef", "#ffffff", "#efefef", "#000000", "#308cc6", "#ffffff", false},
    {"Adwaita dark", "#353535", "#2d2d2d", "#373737", "#eeeeec", "#15539e", "#ffffff", false},
    {"Breeze light", "#eff0f1", "#fcfcfc", "#fcfcfc", "#232629", "#3daee9", "#ffffff", false},
    {"Breeze dark", "#2a2e32", "#1b1e20", "#31363b", "#fcfcfc", "#3daee9", "#fcfcfc", false},
    {"yellow marks", "#f0f0f0", "#ffffff", "#e0e0e0", "#202020", "#ffe680", "#000000", false},
    {"black on white", "#ffffff", "#ffffff", "#ffffff", "#000000", "#0000ff", "#ffffff", true},
    {"white on black", "#000000", "#000000", "#000000", "#ffffff", "#00007f", "#ffffff", true},
    {"marks like the text", "#000000", "#000000", "#000000", "#ffffff", "#ffffff", "#000000", true},
};

inline QPalette paletteOf(const Theme& theme) {
    QPalette palette(QColor(theme.button), QColor(theme.window));
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Window, theme.window);
        palette.setColor(group, QPalette::Base, theme.base);
        palette.setColor(group, QPalette::Button, theme.button);
        palette.setColor(group, QPalette::Highlight, theme.highlight);
        palette.setColor(group, QPalette::HighlightedText, theme.highlightedText);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            palette.setColor(group, role, theme.text);
    }
    return palette;
}

inline const Theme& themeNamed(const QString& name) {
    return *std::find_if(
        std::begin(kThemes), std::end(kThemes), [&](const Theme& theme) { return theme.name == name; });
}

} // namespace quorvi::test
