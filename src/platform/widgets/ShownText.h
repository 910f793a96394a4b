// How much of a text is shown. A file may hold names of any length, and a megabyte takes seconds to lay out.
#pragma once

#include <QString>

namespace quorvi {

/// The longest text that is shown whole, in UTF-16 units: four times a name that the panel would write.
inline constexpr int longestShownText = 80;

/// The text, or its beginning with an ellipsis behind it when it is too long. What is stored stays whole.
[[nodiscard]] QString shownText(const QString& text);

} // namespace quorvi
