// The clock that the panel measures with.
#pragma once

#include <chrono>

namespace quorvi {

/// Seconds since some moment before the start of this process. They never go backwards, whatever the user
/// does to the time of day.
[[nodiscard]] inline double steadySeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace quorvi
