// Which copies stay. Private to this library.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "history/History.h"

namespace quorvi {

using SystemTime = std::chrono::system_clock::time_point;

struct SizedCopy {
    DatedCopy copy;
    std::uint64_t bytes = 0; ///< of the file
};

/// The day that the user's clock and time zone have at that time.
[[nodiscard]] std::chrono::sys_days localDay(SystemTime time);

/// The names of the copies that go, by the rules of History.h. Takes all copies, newest first, and the name
/// of the one that was just made, which stays whatever the clock says.
[[nodiscard]] std::vector<std::string> copiesToRemove(
    const std::vector<SizedCopy>& newestFirst, const std::string& justMade, SystemTime now);

} // namespace quorvi
