// The delays that a recorded macro can have between two steps.
#pragma once

#include <array>
#include <cstdint>

namespace quorvi {

/// Milliseconds, from short to long.
inline constexpr std::array<std::int32_t, 16> delayScale{
    10, 20, 30, 40, 50, 100, 150, 200, 300, 400, 500, 1000, 2000, 3000, 4000, 5000};

/// The delay that stands for a measured interval, in seconds: the first of the scale that is longer than its
/// whole milliseconds, so that exactly 50 ms give 100; the longest for anything longer. A clock that was set
/// back, or gives no number, gives the shortest.
[[nodiscard]] std::int32_t delayOfInterval(double seconds);

} // namespace quorvi
