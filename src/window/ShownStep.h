// The displayed texts of a macro's steps, under the keyboard layout in use.
#pragma once

#include "keyboard/KeyboardLayout.h"
#include "macros/StepText.h"
#include "macros/Timeline.h"
#include "plist/Value.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// stepText() (macros/StepText.h) with the panel's texts.
[[nodiscard]] QString shownStep(const plist::Dictionary& step, const PanelText& text);

/// The panel's texts as what knows of no window looks them up.
[[nodiscard]] TextLookup lookupIn(PanelText text);

/// Null when there is none.
[[nodiscard]] KeyboardLayoutRef layoutInUse();

/// What a lane of the drawing of a macro is called: its key, or the mouse.
[[nodiscard]] QString shownLane(const TimelineLane& lane, const PanelText& text);

} // namespace quorvi
