// Colours of the theme for what is drawn beside controls, so that it reads in a light and in a dark one.
#pragma once

#include <QColor>
#include <QPalette>

namespace quorvi {

/// So much of the first colour and the rest of the second.
[[nodiscard]] inline QColor mixed(qreal share, const QColor& first, const QColor& second) {
    const auto mix = [share](int a, int b) { return int(share * a + (1 - share) * b); };
    return {
        mix(first.red(), second.red()), mix(first.green(), second.green()), mix(first.blue(), second.blue())};
}

/// The share of the text's colour in the field's; some themes give lines the colour of the field itself.
[[nodiscard]] inline QColor mixedTextColour(const QPalette& palette, qreal share) {
    return mixed(share, palette.color(QPalette::Text), palette.color(QPalette::Base));
}

/// The background of what is marked while it is disabled; some themes do not grey theirs.
[[nodiscard]] inline QColor disabledMarkColour(const QPalette& palette) {
    return mixedTextColour(palette, 0.2);
}

/// Frames and axes.
[[nodiscard]] inline QColor outlineColour(const QPalette& palette) {
    return mixedTextColour(palette, 0.35);
}

/// What stands behind the main thing and is still to be read.
[[nodiscard]] inline QColor mutedTextColour(const QPalette& palette) {
    return mixedTextColour(palette, 0.6);
}

/// A line that the eye is to find first; grey while the widget is disabled. A theme's highlight is made to
/// stand behind text, and in dark themes too dark for a line by itself.
[[nodiscard]] inline QColor markColour(const QPalette& palette) {
    constexpr int wantedDistance = 90; // of 255 steps of lightness
    if (palette.currentColorGroup() == QPalette::Disabled)
        return mutedTextColour(palette);
    const QColor mark = palette.color(QPalette::Highlight);
    const int distance = qAbs(mark.lightness() - palette.color(QPalette::Base).lightness());
    return distance >= wantedDistance ? mark : mixed(0.5, mark, palette.color(QPalette::Text));
}

} // namespace quorvi
