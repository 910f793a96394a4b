#include "macros/DelayScale.h"

#include <algorithm>
#include <cmath>

namespace quorvi {

namespace {

constexpr double kMicrosecondsPerSecond = 1e6;
constexpr double kMicrosecondsPerMillisecond = 1e3;

/// The difference of two clock readings is inexact by a fraction of a microsecond. Without rounding, 50 ms
/// might count as 49.
double wholeMilliseconds(double seconds) {
    return std::trunc(std::round(seconds * kMicrosecondsPerSecond) / kMicrosecondsPerMillisecond);
}

} // namespace

// Uses floating-point numbers only: an interval may be infinite or NaN.
std::int32_t delayOfInterval(double seconds) {
    const double elapsed = wholeMilliseconds(seconds);
    const auto* longer = std::ranges::find_if(
        delayScale, [elapsed](std::int32_t delay) { return !(static_cast<double>(delay) <= elapsed); });
    return longer == delayScale.end() ? delayScale.back() : *longer;
}

} // namespace quorvi
