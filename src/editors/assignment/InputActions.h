// What the user's actions on the inputs are called, for Change::action. An input is a number, 1 to 9.
#pragma once

#include <string>

#include "widgets/FilledText.h"

namespace quorvi {

/// Another function for the input.
[[nodiscard]] std::u16string assignAction(int input, const PanelText& text);
/// Its function by default.
[[nodiscard]] std::u16string resetAction(int input, const PanelText& text);
/// What it does in the profile of that name.
[[nodiscard]] std::u16string copyAction(int input, const std::u16string& profile, const PanelText& text);
/// What all of them do there.
[[nodiscard]] std::u16string copyAllAction(const std::u16string& profile, const PanelText& text);

} // namespace quorvi
