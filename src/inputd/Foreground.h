// Drives one device without a bus, for manual trials and tests.
#pragma once

#include <cstdint>
#include <string>

namespace quorvi::inputd {

struct ForegroundRequest {
    std::string device; ///< /dev/input/eventN
    std::string record; ///< a file of 13232 bytes
    std::uint16_t sensorDpi = 1600;
};

/// Drives the device until SIGTERM or SIGINT, then returns 0. If the device or the record cannot be opened,
/// or the device is removed, prints one line on standard error and returns 1.
[[nodiscard]] int runInForeground(const ForegroundRequest& request);

} // namespace quorvi::inputd
