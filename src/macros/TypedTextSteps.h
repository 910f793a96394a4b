// The steps that type a text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "keyboard/KeyboardLayout.h"
#include "plist/Value.h"

namespace quorvi {

/// The delay of each step, in milliseconds. A game reads the keyboard once per picture, usually 60 and on a
/// slow computer 30 times a second, and may miss a press shorter than 33 ms. This is the menu's first longer
/// delay. Other programs accept keys at any speed.
inline constexpr std::int32_t typingDelay = 40;

struct TypedTextSteps {
    plist::Array steps;     ///< new ones, never nil
    std::u16string typed;   ///< what they type: the text's beginning, without characters that cannot be typed
    std::size_t noRoom = 0; ///< the number of characters after it that have no room
    std::u16string untypable; ///< the characters that the layout cannot type, each once
};

/// Steps that type the text under the layout, as many as fit. Shift and AltGr stay down from one character to
/// the next if that needs fewer steps; a character needs two, or four with a dead key. Each step's delay is
/// typingDelay. The text may contain line ends (LF) and tabs.
[[nodiscard]] TypedTextSteps stepsOfTypedText(
    std::u16string_view text, const KeyboardLayout& layout, std::size_t room);

} // namespace quorvi
