// The delays of several steps at once.
#pragma once

#include <cstdint>

#include "macros/StepMoves.h"
#include "plist/Value.h"

namespace quorvi {

/// Sets every step's delay, in milliseconds, except the last one's, which becomes 0.
void setDelayForAllSteps(const plist::Array& steps, std::int32_t milliseconds);

struct MultipliedDelays {
    std::size_t changed = 0; ///< the number of changed delays
    std::size_t tooLong = 0; ///< how many were limited to the longest delay
};

/// Multiplies the steps' delays (all steps' without indices) by the thousandths, and rounds them to whole
/// milliseconds, halves up. A delay that a mouse cannot keep stays unchanged.
MultipliedDelays multiplyDelays(
    const plist::Array& steps, const StepPlaces& indices, std::int32_t thousandths);

} // namespace quorvi
