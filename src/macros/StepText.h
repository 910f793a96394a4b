// A macro's step in words.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "plist/Value.h"

namespace quorvi {

/// Gives the text to show for an English one.
using TextLookup = std::function<std::u16string(std::u16string_view english)>;

/// What the step does, as "Press A" or "Release button"; a key is named by itself, without modifiers, under
/// the layout in use (KeyNames.h). Empty for a missing step and for a code that is no key's and no button's.
[[nodiscard]] std::u16string stepText(const plist::Dictionary& step, const TextLookup& lookup);

} // namespace quorvi
