// Virtual key codes and the modifier word of the Macintosh keyboard: the terms of key names and the
// platform's key services.
//
// A virtual key code (0 to 127) names a position on the keyboard, not a character; 255 means no key. The
// modifier word is the high byte of an event's 16-bit modifier field. A modifier byte is that word shifted
// right by 8, the form in which a layout takes it.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace quorvi {

inline constexpr std::uint16_t commandModifier = 0x0100;
inline constexpr std::uint16_t shiftModifier = 0x0200;
inline constexpr std::uint16_t capsLockModifier = 0x0400;
inline constexpr std::uint16_t optionModifier = 0x0800;
inline constexpr std::uint16_t controlModifier = 0x1000;

/// The modifier byte of a modifier word.
[[nodiscard]] constexpr std::uint8_t modifierByte(std::uint16_t word) {
    return static_cast<std::uint8_t>(word >> 8);
}

inline constexpr std::uint8_t noKey = 0xFF;
inline constexpr std::uint8_t virtualKeyCount = 128;
inline constexpr std::uint8_t escapeKey = 0x35;
inline constexpr std::uint8_t capsLockKey = 0x39;
inline constexpr std::uint8_t keypadClearKey = 0x47; ///< Num Lock on the keyboard of a PC
inline constexpr std::uint8_t menuKey = 0x6E;

/// F1 to F15, in order.
inline constexpr std::array<std::uint8_t, 15> functionKeys{
    0x7A, 0x78, 0x63, 0x76, 0x60, 0x61, 0x62, 0x64, 0x65, 0x6D, 0x67, 0x6F, 0x69, 0x6B, 0x71};

/// The keys of the numeric keypad: = * + - / 0 to 9 . and Enter. Clear is not among them: it types no
/// character for which the keypad could be preferred.
inline constexpr std::array<std::uint8_t, 17> keypadKeys{
    0x51, 0x4B, 0x43, 0x59, 0x5B, 0x5C, 0x4E, 0x56, 0x57, 0x58, 0x45, 0x53, 0x54, 0x55, 0x52, 0x41, 0x4C};

[[nodiscard]] constexpr bool isKeypadKey(std::uint8_t keyCode) {
    return std::find(keypadKeys.begin(), keypadKeys.end(), keyCode) != keypadKeys.end();
}

} // namespace quorvi
