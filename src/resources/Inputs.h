// Connects the drawing of the mouse on the buttons tab with the pop-ups next to it.
#pragma once

#include "ui_KyvarQuorviPane.h"

namespace quorvi {

/// Draws the lines between the drawing and the pop-ups, marks the input of the pointed or focused pop-up,
/// name or number in all of them, and makes a click on an input open its pop-up or say why it is locked.
void connectInputs(const Ui::KyvarQuorviPane& ui);

} // namespace quorvi
