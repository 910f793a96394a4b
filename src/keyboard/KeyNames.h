// Names of keys, modifiers and key combinations, as the user reads them: "Command+Shift+page up", "Num+5".
//
// Names follow the keyboard layout that was current when GetKeyboardInformation was last called, and pass
// through its localisation. Both are process-wide and for the main thread alone.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace quorvi {

/// Gives the localised form of an English text. Where it has none it gives the text itself, or nothing at
/// all.
using KeyNameLocalizer = std::function<std::u16string(std::u16string_view key)>;

/// Keeps the localisation (which may be empty: the English names are shown then) and reads what each key
/// types with Command held. Returns 0, or the error of CompatibleGetKeyboardLayout when there is no layout;
/// what the keys type is then left as it was.
std::int32_t GetKeyboardInformation(KeyNameLocalizer localizer);

/// The localised form of a text; the text itself when there is no localisation or it has no entry.
[[nodiscard]] std::u16string KeyNamesLocStr(std::u16string_view text);

/// The Mac Roman character that the key types with Command held, of whose code the low 7 bits count; 0 when
/// it types nothing, and before the first GetKeyboardInformation.
[[nodiscard]] std::uint8_t GetKeyChar(std::uint32_t keyCode);

/// The name of a key alone; empty for no key (255), "???" for a key that nothing is known of.
[[nodiscard]] std::u16string GetKeyName(std::uint32_t keyCode);

/// The names of the modifiers in the modifier word, in the order Control, Command, Option, Shift, Caps Lock,
/// joined with "+"; behind them "Num" when the key lies on the numeric keypad (65 to 92). May be empty.
[[nodiscard]] std::u16string GetModifiersName(std::uint32_t keyCode, std::uint32_t modifiers);

/// The name of a key with its modifiers. Of the code the low 8 bits count, of the modifiers the low 16. No
/// key (255) gives the modifiers alone, or "(none)" without any.
[[nodiscard]] std::u16string GetKeyCombinationName(std::uint32_t keyCode, std::uint32_t modifiers);

/// The same as the window shows it. Two keys of the keyboard of a PC have names of their own there: the menu
/// key, which types nothing and so is "???" otherwise, and Num Lock, otherwise the keypad's "clear".
[[nodiscard]] std::u16string shownKeyCombination(std::uint32_t keyCode, std::uint32_t modifiers);

} // namespace quorvi
