// Assignments in words.
#pragma once

#include "plist/Value.h"
#include "widgets/FilledText.h"

namespace quorvi {

class Document;

/// The pop-up's text for the assignment: the function's title with its profile, macro or key. The plain title
/// is that of the function's item.
[[nodiscard]] QString assignmentTitle(const Document& document, const plist::Dictionary& assignment,
    const QString& plainTitle, const PanelText& text);

/// The steps of the assigned macro, in one line; empty for other assignments.
[[nodiscard]] QString stepsOfMacro(
    const Document& document, const plist::Dictionary& assignment, const PanelText& text);

} // namespace quorvi
