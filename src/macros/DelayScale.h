// The delays that a recorded macro can have between two steps.
#pragma once

#include <array>
#include <cstdint>

namespace quorvi {

/// Milliseconds, from short to long.
inline constexpr std::array<std::int32_t, 16> delayScale{
    10, 20, 30, 40, 50, 100, 150, 200, 300, 400, 500, 1000, 2000, 3000, 4000, 5000};

/// The delay for a measured interval in seconds: the first of the scale that is longer than its whole
/// milliseconds, so exactly 50 ms maps to 100. Longer intervals map to the longest delay, a negative interval
/// or NaN to the shortest.
[[nodiscard]] std::int32_t delayOfInterval(double seconds);

} // namespace quorvi
