#include "macros/DelayScale.h"

#include <algorithm>
#include <cmath>

namespace quorvi {

namespace {

constexpr double kMicrosecondsPerSecond = 1e6;
constexpr double kMicrosecondsPerMillisecond = 1e3;

/// The difference of two readings of a clock is off by a fraction of a microsecond. Without the rounding, 50
/// ms might count as 49.
double wholeMilliseconds(double seconds) {
    return std::trunc(std::round(seconds * kMicrosecondsPerSecond) / kMicrosecondsPerMillisecond);
}

} // namespace

// Everything stays a floating-point number: an interval may be infinite or no number, which no integer is.
std::int32_t delayOfInterval(double seconds) {
    const double elapsed = wholeMilliseconds(seconds);
    const auto* longer = std::ranges::find_if(
        delayScale, [elapsed](std::int32_t delay) { return !(static_cast<double>(delay) <= elapsed); });
    return longer == delayScale.end() ? delayScale.back() : *longer;
}

} // namespace quorvi
