// Which keys type a character under a keyboard layout.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "keyboard/KeyboardLayout.h"

namespace quorvi {

/// Bits of the modifiers that select a key's character.
inline constexpr unsigned shiftHeld = 1;
inline constexpr unsigned altGrHeld = 2;
inline constexpr unsigned modifierChoices = 4;

/// A key's USB usage, with the modifiers to hold for it.
struct Keystroke {
    std::uint8_t usage = 0;
    unsigned held = 0; ///< below modifierChoices
};

/// One stroke, or two where the first one is a dead key.
using Keystrokes = std::vector<Keystroke>;

class TextKeystrokes {
  public:
    /// The layout must outlive it.
    explicit TextKeystrokes(const KeyboardLayout& layout);

    /// All ways to type the character, those with few modifiers first; empty if the layout cannot type it. A
    /// line end is Return and a tab is Tab. The keypad is used only for characters that no other key types.
    [[nodiscard]] const std::vector<Keystrokes>& waysToType(char16_t character);

  private:
    void collect(bool keypad);
    void collectDeadKeys();
    void collectBehind(const Keystroke& dead, std::uint32_t deadKey);
    template <typename Visit>
    void forEachStroke(bool keypad, const Visit& visit) const;

    const KeyboardLayout& m_layout;
    unsigned m_choices; ///< of the layout's modifiers
    bool m_knowsDeadKeys = false;
    std::map<char16_t, std::vector<Keystrokes>> m_ways;
};

} // namespace quorvi
