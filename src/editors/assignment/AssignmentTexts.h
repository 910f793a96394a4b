// Assignments in words.
#pragma once

#include "plist/Value.h"
#include "widgets/FilledText.h"

namespace quorvi {

class Document;

/// What the pop-up shows of the assignment: the function's title, with which profile, macro or key it is
/// assigned. The plain title is that of the function's item.
[[nodiscard]] QString assignmentTitle(const Document& document, const plist::Dictionary& assignment,
    const QString& plainTitle, const PanelText& text);

/// The steps of the macro that is assigned, in a line; empty for an assignment of something else.
[[nodiscard]] QString stepsOfMacro(
    const Document& document, const plist::Dictionary& assignment, const PanelText& text);

} // namespace quorvi
