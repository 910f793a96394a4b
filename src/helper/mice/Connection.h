// How a mouse is connected, by the kernel's list of input devices.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvi {

/// "usb" (also behind a receiver), "bluetooth", "internal", or "" when the list does not tell: that of the
/// first device with these numbers in the text of /proc/bus/input/devices.
[[nodiscard]] std::string connectionIn(std::string_view devices, std::uint16_t vendor, std::uint16_t product);

/// By the kernel's list as it is now.
[[nodiscard]] std::string connectionOf(std::uint16_t vendor, std::uint16_t product);

} // namespace quorvi
