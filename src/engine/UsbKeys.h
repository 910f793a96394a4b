// Keys as the record names them, by the usages of a USB keyboard (HID usage tables, keyboard page), and as
// the Linux input layer does.
#pragma once

#include <array>
#include <cstdint>

#include <linux/input-event-codes.h>

namespace quorvi::engine {

/// The key of the usage; KEY_RESERVED (0) when there is none. The power key counts as none: nobody wants to
/// press it by accident, and a keyboard that has it is watched by the log-in manager.
[[nodiscard]] std::uint16_t keyOfUsage(std::uint32_t usage);

// Bits of a USB modifier byte.
inline constexpr std::uint8_t leftControl = 0x01;
inline constexpr std::uint8_t leftShift = 0x02;
inline constexpr std::uint8_t leftAlt = 0x04;
inline constexpr std::uint8_t leftSuper = 0x08;

/// The keys of the bits, lowest first. The bit of right Alt is a Super key: that is what the panel stores
/// there (AdbToUsbModifiers), and nothing else does.
inline constexpr std::array<std::uint16_t, 8> modifierKeysOfBits{KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_LEFTALT,
    KEY_LEFTMETA, KEY_RIGHTCTRL, KEY_RIGHTSHIFT, KEY_RIGHTMETA, KEY_RIGHTMETA};

} // namespace quorvi::engine
