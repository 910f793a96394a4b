// How texts are shown: how much of them, and from which side. A file may hold names of any length, and a
// megabyte takes seconds to lay out.
#pragma once

#include <QString>

namespace quorvi {

/// The longest text that is shown whole, in UTF-16 units: four times a name that the panel would write.
inline constexpr int longestShownText = 80;

/// The text, or its beginning with an ellipsis behind it when it is too long. What is stored stays whole.
[[nodiscard]] QString shownText(const QString& text);

/// A name as it is shown by itself: cut likewise, and without marks that would have it read from another side
/// than it begins.
[[nodiscard]] QString shownName(const QString& name);

/// The name as a part of the text, in which it neither turns what stands around it nor is turned: a name may
/// be written from the right in a text from the left, or hold marks that change the direction. It is
/// isolated where it could; a plain one is given back as it is.
[[nodiscard]] QString nameWithin(const QString& text, const QString& name);
/// The character begins or ends the isolation of a name.
[[nodiscard]] bool isolatesName(QChar character);

/// The text with the marks around it that have it read from the right, when that is how it begins. Styles
/// draw the texts of controls and menus in the application's direction, not in the widget's: a full stop or a
/// Latin letter would end up on the wrong side of what is written from the right.
[[nodiscard]] QString inItsDirection(const QString& text);
/// The text without such marks and all others that set a direction, wherever they are. Names that stand
/// isolated in it stay so.
[[nodiscard]] QString withoutDirection(const QString& text);

} // namespace quorvi
