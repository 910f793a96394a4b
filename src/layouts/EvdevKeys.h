// The keys of the Linux input layer (linux/input-event-codes.h) and their virtual key codes, by position.
#pragma once

#include <cstdint>

namespace quorvi {

/// The offset of X keyboard extension key codes, and so of native scan codes under X11 and Wayland, from the
/// input layer's.
inline constexpr std::uint16_t xkbKeycodeOffset = 8;

/// The input layer's key of a virtual key code; 0 (KEY_RESERVED) if there is none. If several keys have the
/// code, the one with the lowest USB usage.
[[nodiscard]] std::uint16_t evdevKeycode(std::uint8_t virtualKey);

/// The virtual key code of the input layer's key; 255 if there is none. Modifier keys have one code for the
/// left and the right key.
[[nodiscard]] std::uint8_t virtualKeycode(std::uint16_t evdevKey);

} // namespace quorvi
