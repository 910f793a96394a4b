// Colours of the theme for what is drawn beside controls, so that it reads in a light and in a dark one.
#pragma once

#include <QColor>
#include <QPalette>

namespace quorvi {

/// The share of the text's colour in the field's; some themes give lines the colour of the field itself.
[[nodiscard]] inline QColor mixedTextColour(const QPalette& palette, qreal share) {
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    const auto mix = [share](int a, int b) { return int(share * a + (1 - share) * b); };
    return {mix(text.red(), base.red()), mix(text.green(), base.green()), mix(text.blue(), base.blue())};
}

/// Frames and axes.
[[nodiscard]] inline QColor outlineColour(const QPalette& palette) {
    return mixedTextColour(palette, 0.35);
}

/// What stands behind the main thing and is still to be read.
[[nodiscard]] inline QColor mutedTextColour(const QPalette& palette) {
    return mixedTextColour(palette, 0.6);
}

/// What the eye is to find first; grey while the widget is disabled.
[[nodiscard]] inline QColor markColour(const QPalette& palette) {
    return palette.currentColorGroup() == QPalette::Disabled ? mutedTextColour(palette)
                                                             : palette.color(QPalette::Highlight);
}

} // namespace quorvi
