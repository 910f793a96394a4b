// What the window says of a macro's faults, and of what puts them right.
#pragma once

#include <QString>

#include "macros/StepMending.h"
#include "plist/Value.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// What is wrong with the step, as a sentence; also that there is no room for the step that is missing.
[[nodiscard]] QString faultText(const plist::Array& steps, const StepCheck& fault, const PanelText& text);

/// What puts it right, as a command and as the name of an action.
[[nodiscard]] QString mendingTitle(Mending mending, const PanelText& text);

/// What the step presses: the name of a key by itself, or which mouse button.
[[nodiscard]] QString nameOfPressed(const plist::Dictionary& step, const PanelText& text);

/// That inputs run a macro without steps: the first of them, and how many there are beside it. The inputs are
/// those of the tree, at least one.
[[nodiscard]] QString emptyMacroText(
    const plist::Dictionary& tree, const std::vector<ProfileInput>& inputs, const PanelText& text);

} // namespace quorvi
