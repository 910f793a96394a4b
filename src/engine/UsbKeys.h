// Converts the record's keys, which are usages of a USB keyboard (HID usage tables, keyboard page), to keys
// of the Linux input layer.
#pragma once

#include <array>
#include <cstdint>

#include <linux/input-event-codes.h>

namespace quorvi::engine {

/// The key of the usage; KEY_RESERVED (0) if there is none. The power key counts as none: it could be pressed
/// by accident, and the log-in manager watches keyboards that have it.
[[nodiscard]] std::uint16_t keyOfUsage(std::uint32_t usage);

/// The usage of the key, the lowest of several; 0, which is none, for a key that no usage has.
[[nodiscard]] std::uint8_t usageOfKey(std::uint16_t key);

// Bits of a USB modifier byte.
inline constexpr std::uint8_t leftControl = 0x01;
inline constexpr std::uint8_t leftShift = 0x02;
inline constexpr std::uint8_t leftAlt = 0x04;
inline constexpr std::uint8_t leftSuper = 0x08;

/// The keys of the bits, lowest first. The bit of right Alt is a Super key: only the panel sets it, and for
/// that key (AdbToUsbModifiers).
inline constexpr std::array<std::uint16_t, 8> modifierKeysOfBits{KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_LEFTALT,
    KEY_LEFTMETA, KEY_RIGHTCTRL, KEY_RIGHTSHIFT, KEY_RIGHTMETA, KEY_RIGHTMETA};

} // namespace quorvi::engine
