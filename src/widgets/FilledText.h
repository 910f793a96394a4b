// Inserts values into texts of the string tables.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace quorvi {

/// Returns the string table's text for the key, in the user's language.
using PanelText = std::function<QString(const char*)>;

/// The text with the first part in place of "^1", the second in place of "^2" and so on. Parts are inserted
/// unchanged, even with such marks; a mark without a part stays. At most nine parts.
[[nodiscard]] QString filledText(const QString& text, const QStringList& parts);

/// Joins the parts with the pattern's text between "^1" and "^2" as the separator.
[[nodiscard]] QString joinedText(const QString& pattern, const QStringList& parts);

/// The name for insertion into the text: shortened (shownText), with its direction isolated (nameWithin), and
/// "?" if empty.
[[nodiscard]] QString nameFor(const QString& text, const QString& name);

} // namespace quorvi
