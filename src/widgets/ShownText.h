// Limits the length and controls the direction of shown texts. A file may hold names of any length, and a
// megabyte takes seconds to lay out.
#pragma once

#include <QString>

namespace quorvi {

/// The longest text shown in full, in UTF-16 units: four times the panel's longest name.
inline constexpr int longestShownText = 80;

/// The text, or its beginning and an ellipsis if it is too long. Stored texts are not affected.
[[nodiscard]] QString shownText(const QString& text);

/// A name shown on its own: cut in the same way, and without marks that change its direction.
[[nodiscard]] QString shownName(const QString& name);

/// The name for insertion into the text, isolated so that neither affects the other's direction: a name may
/// be right-to-left in a left-to-right text, or hold direction marks. A name without such effects is returned
/// unchanged.
[[nodiscard]] QString nameWithin(const QString& text, const QString& name);
/// Whether the character begins or ends the isolation of a name.
[[nodiscard]] bool isolatesName(QChar character);

/// The text with right-to-left marks around it if it begins right-to-left. Styles draw the texts of controls
/// and menus in the application's direction, not the widget's: a full stop or a Latin letter would end up on
/// the wrong side of right-to-left text.
[[nodiscard]] QString inItsDirection(const QString& text);
/// The text for a tool tip, which shows it as it is even where it looks like markup.
[[nodiscard]] QString withoutMarkup(QString text);

/// The text without these and all other direction marks. Isolated names in it stay isolated.
[[nodiscard]] QString withoutDirection(const QString& text);

} // namespace quorvi
