// The reverse of a keyboard layout: which keystroke types a character.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

namespace quorvi {

/// Indexed by character: the key code that types it (255 when none does), or the modifier byte to hold.
using KeyTable = std::array<std::uint8_t, 256>;
using KeyTableSlot = std::unique_ptr<KeyTable>;

/// The character in the low byte, its key code in the high byte.
[[nodiscard]] std::uint16_t GetCharMessage(const KeyTable& characterToKey, std::uint8_t character);

/// The modifier word to hold for the character.
[[nodiscard]] std::uint16_t GetCharModifiers(const KeyTable& characterToModifiers, std::uint8_t character);

/// Puts two new tables into the slots and fills them from the current layout. False when a slot is null, when
/// there is no memory, or when they could not be filled; they then type nothing.
[[nodiscard]] bool SetupKeyTablesNumPad(
    KeyTableSlot* characterToKey, KeyTableSlot* characterToModifiers, bool preferKeypad);
[[nodiscard]] bool SetupKeyTables(KeyTableSlot* characterToKey, KeyTableSlot* characterToModifiers);

/// Fills the tables from the current layout; a character's index is the low 8 bits of its UTF-16 unit. False,
/// with the tables as they were, when one is null or there is no layout (an old-style one does not do).
///
/// One dead-key state runs through the whole build, and a key that types nothing stands for the character of
/// the key tried before it.
[[nodiscard]] bool UpdateKeyTablesNumPad(
    KeyTable* characterToKey, KeyTable* characterToModifiers, bool preferKeypad);
[[nodiscard]] bool UpdateKeyTables(KeyTable* characterToKey, KeyTable* characterToModifiers);

/// Whether the new keystroke (key code and modifier byte) should replace the old one for the same character:
/// Escape rather than Clear; the keypad key where it is preferred, else the key outside 64 to 95; else the
/// one whose modifiers cost less (Shift 1, Option 2, Control 4, Caps Lock 8, Command 16). On a tie the old
/// one stays.
[[nodiscard]] bool IsBetterKeystroke(std::uint8_t newKey, std::uint8_t newModifiers, std::uint8_t oldKey,
    std::uint8_t oldModifiers, bool preferKeypad);

} // namespace quorvi
