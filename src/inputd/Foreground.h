// Driving one device by hand, without a bus: for trying and for tests.
#pragma once

#include <cstdint>
#include <string>

namespace quorvi::inputd {

struct ForegroundRequest {
    std::string device; ///< /dev/input/eventN
    std::string record; ///< a file of 13232 bytes
    std::uint16_t sensorDpi = 1600;
};

/// Drives the device until SIGTERM or SIGINT; then 0. When the device or the record cannot be had, or the
/// device goes away, one line on standard error, and 1.
[[nodiscard]] int runInForeground(const ForegroundRequest& request);

} // namespace quorvi::inputd
