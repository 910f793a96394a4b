// A macro's step as the window shows it.
#pragma once

#include "plist/Value.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// stepText() (macros/StepText.h) with the panel's texts.
[[nodiscard]] QString shownStep(const plist::Dictionary& step, const PanelText& text);

} // namespace quorvi
