// The keys of the Linux input layer (linux/input-event-codes.h) and their virtual key codes, by position.
#pragma once

#include <cstdint>

namespace quorvi {

/// What a key code of the X keyboard extension, and so a native scan code under X11 and Wayland, is above the
/// input layer's.
inline constexpr std::uint16_t xkbKeycodeOffset = 8;

/// The input layer's key of a virtual key code; 0 (KEY_RESERVED) when there is none. Of several keys with one
/// virtual key code, the one with the lowest USB usage.
[[nodiscard]] std::uint16_t evdevKeycode(std::uint8_t virtualKey);

/// The virtual key code of the input layer's key; 255 when there is none. Modifier keys have one code for the
/// left and the right key.
[[nodiscard]] std::uint8_t virtualKeycode(std::uint16_t evdevKey);

} // namespace quorvi
