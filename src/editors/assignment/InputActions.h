// Names of the user's actions on inputs, for Change::action. An input is a number, 1 to 9.
#pragma once

#include <string>

#include "widgets/FilledText.h"

namespace quorvi {

/// Another function for the input.
[[nodiscard]] std::u16string assignAction(int input, const PanelText& text);
/// Its function by default.
[[nodiscard]] std::u16string resetAction(int input, const PanelText& text);
/// Its function in the named profile.
[[nodiscard]] std::u16string copyAction(int input, const std::u16string& profile, const PanelText& text);
/// All inputs' functions there.
[[nodiscard]] std::u16string copyAllAction(const std::u16string& profile, const PanelText& text);

} // namespace quorvi
