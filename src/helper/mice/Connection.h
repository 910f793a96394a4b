// The type of a mouse's connection, from the kernel's list of input devices.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvi {

/// "usb" (also for a receiver), "bluetooth", "internal", or "" if unknown: taken from the first device with
/// these numbers in the text of /proc/bus/input/devices.
[[nodiscard]] std::string connectionIn(std::string_view devices, std::uint16_t vendor, std::uint16_t product);

/// The same from the kernel's present list.
[[nodiscard]] std::string connectionOf(std::uint16_t vendor, std::uint16_t product);

} // namespace quorvi
