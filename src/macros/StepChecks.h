// What is probably not meant in a macro, found by looking at its steps alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

enum class StepFault : std::uint8_t {
    staysDown,     ///< a press without a release: the key or the button is still down when the macro is over
    neverPressed,  ///< a release without a press
    delayAfterEnd, ///< a delay after the last step: nothing follows that it could hold back
};

struct StepCheck {
    std::size_t index; ///< of the step that it is about
    StepFault fault;
    friend bool operator==(const StepCheck&, const StepCheck&) = default;
};

/// All that is found, in the order of the steps; a step may have two faults. A press that another press of
/// the same key follows before the release is no fault: the key comes up in the end. The release of a mouse
/// button lets all of them go.
[[nodiscard]] std::vector<StepCheck> checkSteps(const plist::Array& steps);

} // namespace quorvi
