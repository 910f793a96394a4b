// What the user's actions on an input are called.
#pragma once

#include <string>

#include "widgets/FilledText.h"

namespace quorvi {

/// Another function for the input, 1 to 9.
[[nodiscard]] std::u16string assignAction(int input, const PanelText& text);

} // namespace quorvi
