// Which key types which letter in a shortcut.
#pragma once

#include <array>
#include <cstdint>

#include "keyboard/KeyboardLayout.h"

namespace quorvi {

/// The key of the input layer (evdev) for each letter, a to z, as the layout types it while Command is held:
/// a layout without Latin letters gives those of the one beside it. 0 for a letter that no key types. Of
/// several keys the first by position, the keypad's never.
[[nodiscard]] std::array<std::uint16_t, 26> letterKeysOf(const KeyboardLayout& layout);

} // namespace quorvi
