// What ties the drawing of the mouse on the buttons tab to the pop-ups beside it.
#pragma once

#include "ui_KyvarQuorviPane.h"

namespace quorvi {

/// Draws the lines between the drawing and the pop-ups, marks on it the input whose pop-up the pointer is
/// over or the focus is on, and lets a click on an input open its pop-up.
void connectInputs(const Ui::KyvarQuorviPane& ui);

} // namespace quorvi
