// What screen readers say of themselves, where nothing that has the focus shows it.
#pragma once

#include <QString>

class QWidget;

namespace quorvi {

/// Has screen readers say the text, as of the widget. Before Qt 6.8 there is no event that carries a text:
/// then the widget's description is the text for a moment, and an alert leads to it.
void announce(QWidget& from, const QString& text);

} // namespace quorvi
