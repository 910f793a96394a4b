// The reverse of a keyboard layout: the keystroke for each character.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

namespace quorvi {

/// Indexed by character: its key code (255 for none), or the modifier byte to hold.
using KeyTable = std::array<std::uint8_t, 256>;
using KeyTableSlot = std::unique_ptr<KeyTable>;

/// The character in the low byte, its key code in the high byte.
[[nodiscard]] std::uint16_t GetCharMessage(const KeyTable& characterToKey, std::uint8_t character);

/// The modifier word to hold for the character.
[[nodiscard]] std::uint16_t GetCharModifiers(const KeyTable& characterToModifiers, std::uint8_t character);

/// Creates two tables in the slots and fills them from the current layout. Returns false if a slot is null,
/// if there is no memory, or if they could not be filled; they then have no keystrokes.
[[nodiscard]] bool SetupKeyTablesNumPad(
    KeyTableSlot* characterToKey, KeyTableSlot* characterToModifiers, bool preferKeypad);
[[nodiscard]] bool SetupKeyTables(KeyTableSlot* characterToKey, KeyTableSlot* characterToModifiers);

/// Fills the tables from the current layout; a character's index is the low 8 bits of its UTF-16 unit.
/// Returns false and leaves the tables unchanged if one is null or there is no layout (an old-style one is
/// not enough).
///
/// One dead-key state runs through the whole build, and a key without a character counts for the character of
/// the previous key.
[[nodiscard]] bool UpdateKeyTablesNumPad(
    KeyTable* characterToKey, KeyTable* characterToModifiers, bool preferKeypad);
[[nodiscard]] bool UpdateKeyTables(KeyTable* characterToKey, KeyTable* characterToModifiers);

/// Whether the new keystroke (key code and modifier byte) should replace the old one for the same character:
/// Escape rather than Clear; the keypad key if preferred, else the key outside 64 to 95; else the one whose
/// modifiers cost less (Shift 1, Option 2, Control 4, Caps Lock 8, Command 16). In a tie the old one stays.
[[nodiscard]] bool IsBetterKeystroke(std::uint8_t newKey, std::uint8_t newModifiers, std::uint8_t oldKey,
    std::uint8_t oldModifiers, bool preferKeypad);

} // namespace quorvi
