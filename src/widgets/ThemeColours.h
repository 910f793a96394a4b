// Colours of the theme for what is drawn beside controls, so that it is seen in a light, in a dark and in a
// high-contrast one: each is moved towards the theme's text until it stands out enough from what is behind.
#pragma once

#include <QColor>
#include <QPalette>

class QStyleOptionViewItem;

namespace quorvi {

/// The contrast of two opaque colours, 1 to 21: the ratio of their relative luminances as the Web Content
/// Accessibility Guidelines 2.1 define it.
[[nodiscard]] qreal contrastOf(const QColor& first, const QColor& second);

/// A theme whose text is, as good as, black on white or white on black: who chooses it needs the contrast.
[[nodiscard]] bool isHighContrast(const QPalette& palette);

/// What lines, signs and areas have to stand out by from what they are on, and what texts have to: 3 and 4.5
/// as the guidelines' level AA asks for, and 7, level AAA, in a theme of high contrast. A disabled palette is
/// asked for nothing, since greyed things are meant to recede.
[[nodiscard]] qreal wantedContrast(const QPalette& palette);
[[nodiscard]] qreal wantedTextContrast(const QPalette& palette);

/// So much of the first colour and the rest of the second.
[[nodiscard]] QColor mixed(qreal share, const QColor& first, const QColor& second);

/// The share of the text's colour in the window's, or more of it until it stands out from the colour it is
/// drawn on as lines have to.
[[nodiscard]] QColor lineOnWindow(const QPalette& palette, qreal share, const QColor& ground);
[[nodiscard]] QColor lineOnWindow(const QPalette& palette, qreal share);

/// The colour, or one nearer to the text's until it stands out from a button as signs have to.
[[nodiscard]] QColor signOnButton(const QPalette& palette, const QColor& colour);

/// The background of what is marked while it is disabled; some themes do not grey theirs.
[[nodiscard]] QColor disabledMarkColour(const QPalette& palette);

/// Frames and axes on a field. Some themes give lines the colour of the field itself.
[[nodiscard]] QColor outlineColour(const QPalette& palette);

/// A text on a field that stands behind the main thing and is still to be read.
[[nodiscard]] QColor mutedTextColour(const QPalette& palette);

/// What styles draw the text of a cell of a list in.
[[nodiscard]] QColor cellTextColour(const QStyleOptionViewItem& cell);

/// A line that the eye is to find first, on a window or a field; grey while the widget is disabled. A theme's
/// highlight is made to stand behind text, and often too near to the field to be a line by itself.
[[nodiscard]] QColor markColour(const QPalette& palette);

/// The highlight behind a text in the theme's colour for highlighted text, deepened until that can be read.
[[nodiscard]] QColor markGroundColour(const QPalette& palette);

} // namespace quorvi
