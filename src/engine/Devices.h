// The exact capabilities of the engine's two output devices: desktops classify a device by them. The keyboard
// has no key for power, sleep or the lid, because the log-in manager would watch it.
#pragma once

#include <cstdint>
#include <span>

#include "engine/Output.h"

namespace quorvi::engine {

/// The EV_KEY codes of the pointer: the kernel's 16 mouse buttons, from BTN_LEFT on.
[[nodiscard]] std::span<const std::uint16_t> pointerButtons();

/// The EV_REL codes of the pointer: both axes and both wheels, in plain and in high resolution.
[[nodiscard]] std::span<const std::uint16_t> pointerAxes();

/// The EV_KEY codes of the keyboard: every key that a record can type, in ascending order.
[[nodiscard]] std::span<const std::uint16_t> keyboardKeys();

/// Finds the device that offers the EV_KEY code. Returns false if neither does.
[[nodiscard]] bool findDeviceOfKey(std::uint16_t code, Device& device);

} // namespace quorvi::engine
