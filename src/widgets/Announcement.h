// Announcements of screen readers that do not concern the focused control.
#pragma once

#include <QString>

class QWidget;

namespace quorvi {

/// Makes screen readers read the text, for the widget. Before Qt 6.8 no event carries a text, so the text
/// becomes the widget's description for a moment, and an alert points to it.
void announce(QWidget& from, const QString& text);

} // namespace quorvi
