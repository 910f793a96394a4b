// What the two devices that the engine plays have to offer, and nothing else: the desktop guesses from it
// what a device is. The keyboard has no key for power, sleep or the lid, since the log-in manager would watch
// it.
#pragma once

#include <cstdint>
#include <span>

#include "engine/Output.h"

namespace quorvi::engine {

/// The EV_KEY codes of the pointer: BTN_LEFT and what follows it, 16 buttons as the kernel counts those of a
/// mouse.
[[nodiscard]] std::span<const std::uint16_t> pointerButtons();

/// The EV_REL codes of the pointer: both axes and both wheels, in plain and in high resolution.
[[nodiscard]] std::span<const std::uint16_t> pointerAxes();

/// The EV_KEY codes of the keyboard: every key that a record can type, in ascending order.
[[nodiscard]] std::span<const std::uint16_t> keyboardKeys();

/// The device that offers the EV_KEY code; false when neither does.
[[nodiscard]] bool findDeviceOfKey(std::uint16_t code, Device& device);

} // namespace quorvi::engine
