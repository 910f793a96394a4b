// A macro's step in words.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "plist/Value.h"

namespace quorvi {

/// Returns the text to show for an English one.
using TextLookup = std::function<std::u16string(std::u16string_view english)>;

/// The step in words: "Press A" or "Release button". Keys are named without modifiers, under the layout in
/// use (KeyNames.h). Empty for a missing step and for a code that is neither a key's nor a button's.
[[nodiscard]] std::u16string stepText(const plist::Dictionary& step, const TextLookup& lookup);

/// The name of the key of a key's step, without modifiers, under the layout in use.
[[nodiscard]] std::u16string keyNameOfStep(const plist::Dictionary& step);

/// The number of the button that the step presses, from 1; 0 if it presses none.
[[nodiscard]] int buttonOfStep(const plist::Dictionary& step);

} // namespace quorvi
