// Conversion between what the device sends (USB keyboard usages, HID usage page 7, and the boot keyboard's
// modifier byte) and the terms of key names and the platform (virtual key codes and the modifier word).
#pragma once

#include <cstdint>

namespace quorvi {

/// The virtual key code of a USB keyboard usage (only its low 8 bits count); 0xFF if the usage has no key.
[[nodiscard]] std::uint8_t UsbToAdbKeycode(std::uint32_t usage);

/// The lowest USB keyboard usage, 0 to 254, of a virtual key code; 0, the usage for "no event", if there is
/// none, and for no key (0xFF).
[[nodiscard]] std::uint8_t AdbToUsbKeycode(std::uint32_t keyCode);

/// The modifier word of a USB modifier byte (only the low 8 bits count). The right-hand bits are read as
/// AdbToUsbModifiers writes them: right Control or right Shift also adds Option, right Alt is Command and
/// right GUI is ignored.
[[nodiscard]] std::uint16_t UsbToAdbModifiers(std::uint32_t modifiers);

/// The USB modifier byte of a modifier word: right-hand bits only, Command as right Alt, Option as right
/// Control and right Shift together. Caps Lock is dropped.
[[nodiscard]] std::uint8_t AdbToUsbModifiers(std::uint32_t modifiers);

} // namespace quorvi
