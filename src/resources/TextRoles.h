// The four kinds of texts: the font and the colour of each. An interface file names the role in the dynamic
// property "textRole" of a widget: "title", "heading" or "hint". What names none is the desktop's own text.
#pragma once

class QWidget;

namespace quorvi {

/// The widget's text is to be read and stands behind what it explains.
[[nodiscard]] bool isHint(const QWidget& widget);

/// Gives the widget the font of its role, made from the font that it has, and a hint the muted colour.
void setTextRole(QWidget& widget);

/// Gives the widget, and so all in it, the colour of hints, and keeps it while the theme changes. For a view
/// that nothing is in yet.
void setMutedColours(QWidget& view);

} // namespace quorvi
