// Decides which copies to keep. Private to this library.
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

/// The day at that time in the user's time zone.
[[nodiscard]] std::chrono::sys_days localDay(SystemTime time);

/// The names of the copies to remove, by the rules of History.h. Needs all copies, newest first, and the name
/// of the one just made, which is always kept.
[[nodiscard]] std::vector<std::string> copiesToRemove(
    const std::vector<SizedCopy>& newestFirst, const std::string& justMade, SystemTime now);

} // namespace quorvi
