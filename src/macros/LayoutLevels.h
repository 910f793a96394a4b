// The parts of a keyboard layout that matter for texts.
#pragma once

#include "keyboard/KeyboardLayout.h"

namespace quorvi {

/// Whether the right Alt key is AltGr: at least one key types another character with it.
[[nodiscard]] bool hasAltGr(const KeyboardLayout& layout);

/// Whether the character is visible or a space. Control characters stand for arrow and function keys.
[[nodiscard]] constexpr bool isTypedCharacter(char16_t character) {
    constexpr char16_t del = 0x7F;
    return character >= u' ' && character != del;
}

} // namespace quorvi
