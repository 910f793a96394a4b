// The keys of letters in shortcuts.
#pragma once

#include <array>
#include <cstdint>

#include "keyboard/KeyboardLayout.h"

namespace quorvi {

/// The input layer's key (evdev) for each letter, a to z, while Command is held: for a layout without Latin
/// letters, those of its companion layout. 0 for a letter without a key. If several keys type it, the first
/// by position, never a keypad key.
[[nodiscard]] std::array<std::uint16_t, 26> letterKeysOf(const KeyboardLayout& layout);

} // namespace quorvi
