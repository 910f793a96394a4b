// Texts of the string tables with something put into them.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace quorvi {

/// The text of the string table for the key, in the user's language.
using PanelText = std::function<QString(const char*)>;

/// The text with the first part in place of "^1", the second in place of "^2" and so on. What a part holds
/// stays as it is, marks like these included; a mark without a part stays as well. Nine parts at most.
[[nodiscard]] QString filledText(const QString& text, const QStringList& parts);

/// The name as it is put into the text: not too long (shownText), not turned (nameWithin), and "?" when it is
/// empty.
[[nodiscard]] QString nameFor(const QString& text, const QString& name);

} // namespace quorvi
