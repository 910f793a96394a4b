// Names of keys, modifiers and key combinations, as the user reads them: "Command+Shift+page up", "Num+5".
//
// Names use the layout that was current at the last call of GetKeyboardInformation, and its localisation.
// Both are process-wide and for the main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace quorvi {

/// Returns the localised form of an English text; without one, the text itself or an empty text.
using KeyNameLocalizer = std::function<std::u16string(std::u16string_view key)>;

/// Stores the localisation (empty for English names) and reads the character of each key with Command held.
/// Returns 0, or the error of CompatibleGetKeyboardLayout without a layout; the characters then stay
/// unchanged.
std::int32_t GetKeyboardInformation(KeyNameLocalizer localizer);

/// The localised form of a text; the text itself if there is no localisation or no entry.
[[nodiscard]] std::u16string KeyNamesLocStr(std::u16string_view text);

/// The Mac Roman character that the key types with Command held; 0 if there is none, and before the first
/// GetKeyboardInformation. Only the low 7 bits of the code count.
[[nodiscard]] std::uint8_t GetKeyChar(std::uint32_t keyCode);

/// The name of a key alone; empty for no key (255), "???" for an unknown key.
[[nodiscard]] std::u16string GetKeyName(std::uint32_t keyCode);

/// The names of the modifiers in the modifier word, in the order Control, Command, Option, Shift, Caps Lock,
/// joined with "+"; followed by "Num" for a key of the numeric keypad (65 to 92). May be empty.
[[nodiscard]] std::u16string GetModifiersName(std::uint32_t keyCode, std::uint32_t modifiers);

/// The name of a key with its modifiers. Only the low 8 bits of the code and the low 16 of the modifiers
/// count. For no key (255), the modifiers alone, or "(none)" without any.
[[nodiscard]] std::u16string GetKeyCombinationName(std::uint32_t keyCode, std::uint32_t modifiers);

/// The same, as shown in the window. Two keys of a PC keyboard have their own names there: the menu key,
/// otherwise "???", and Num Lock, otherwise the keypad's "clear".
[[nodiscard]] std::u16string shownKeyCombination(std::uint32_t keyCode, std::uint32_t modifiers);

} // namespace quorvi
