// Theme colours for drawings next to controls, visible in light, dark and high-contrast themes: each is moved
// towards the theme's text colour until its contrast with the background suffices.
#pragma once

#include <QColor>
#include <QPalette>

#include <initializer_list>

class QStyleOptionViewItem;

namespace quorvi {

/// The contrast of two opaque colours, 1 to 21: the ratio of their relative luminances as defined by the Web
/// Content Accessibility Guidelines 2.1.
[[nodiscard]] qreal contrastOf(const QColor& first, const QColor& second);

/// Whether the theme's text is practically black on white or white on black: users who choose it need the
/// contrast.
[[nodiscard]] bool isHighContrast(const QPalette& palette);

/// The required contrast of lines, signs and areas, and of texts: 3 and 4.5 for the guidelines' level AA, and
/// 7, level AAA, in a high-contrast theme. A disabled palette has no requirement, because greyed items should
/// recede.
[[nodiscard]] qreal wantedContrast(const QPalette& palette);
[[nodiscard]] qreal wantedTextContrast(const QPalette& palette);

/// Mixes that share of the first colour with the second.
[[nodiscard]] QColor mixed(qreal share, const QColor& first, const QColor& second);

/// That share of the text colour in the window's, or more, until its contrast with the ground suffices for a
/// line.
[[nodiscard]] QColor lineOnWindow(const QPalette& palette, qreal share, const QColor& ground);
[[nodiscard]] QColor lineOnWindow(const QPalette& palette, qreal share);

/// A decorative line: under the tabs, between contents one below the other.
[[nodiscard]] QColor lightLineColour(const QPalette& palette);

/// The same on all these grounds at once.
[[nodiscard]] QColor lineOn(const QPalette& palette, qreal share, std::initializer_list<QColor> grounds);

/// The colour, moved towards the text colour until its contrast with a button suffices for a sign.
[[nodiscard]] QColor signOnButton(const QPalette& palette, const QColor& colour);

/// The same for a sign on the window.
[[nodiscard]] QColor signOnWindow(const QPalette& palette, const QColor& colour);

/// The background of disabled marked items; some themes do not grey theirs.
[[nodiscard]] QColor disabledMarkColour(const QPalette& palette);

/// Frames and axes on a field. Some themes give lines the colour of the field itself.
[[nodiscard]] QColor outlineColour(const QPalette& palette);

/// A secondary but readable text on a field.
[[nodiscard]] QColor mutedTextColour(const QPalette& palette);

/// The same on the window itself, for hints. In a high-contrast theme, the plain text colour.
[[nodiscard]] QColor mutedTextOnWindow(const QPalette& palette);

/// The styles' text colour of a list's cell.
[[nodiscard]] QColor cellTextColour(const QStyleOptionViewItem& cell);

/// The colour of a secondary but readable text in a list's cell.
[[nodiscard]] QColor secondLineColour(const QStyleOptionViewItem& cell);
/// Gives a list's cells the colours of the active, focused window, whatever has the focus now, and gives
/// selected cells a background on which small letters in the theme's colour are readable. Styles fade a
/// selection without the focus, some until it is hardly readable.
void keepColours(QStyleOptionViewItem& cell);

/// A prominent line, on a window or a field; grey while the widget is disabled. A theme's highlight is meant
/// as a background for text, and often too close to the field's colour for a line.
[[nodiscard]] QColor markColour(const QPalette& palette);

/// The same on all these grounds at once.
[[nodiscard]] QColor markOn(const QPalette& palette, std::initializer_list<QColor> grounds);

/// A tint of the highlight for an area on a field, as strong as keeps the text on it readable.
[[nodiscard]] QColor tintColour(const QPalette& palette);

/// The highlight behind highlighted text, darkened until the text is readable.
[[nodiscard]] QColor markGroundColour(const QPalette& palette);

/// Amber, and the colour of text on it. Their contrast exceeds 7 in every theme.
[[nodiscard]] QColor warningGroundColour();
[[nodiscard]] QColor warningTextColour();

} // namespace quorvi
