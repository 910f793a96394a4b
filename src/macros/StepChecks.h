// Finds probable mistakes in a macro, from its steps and from the buttons that run it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/Dependants.h"
#include "plist/Value.h"

namespace quorvi {

enum class StepFault : std::uint8_t {
    staysDown,     ///< a press without a release: the key or the button is still down when the macro is over
    neverPressed,  ///< a release without a press
    delayAfterEnd, ///< a delay after the last step, which has no effect
};

struct StepCheck {
    std::size_t index; ///< of the step that it is about
    StepFault fault;
    friend bool operator==(const StepCheck&, const StepCheck&) = default;
};

/// All faults, in the order of the steps; a step may have two. A second press of a key before its release is
/// not a fault: the key is released in the end. The release of a mouse button releases all of them.
[[nodiscard]] std::vector<StepCheck> checkSteps(const plist::Array& steps);

/// The inputs of all profiles that run the macro at the index of the tree although it has no steps, in the
/// order of the profiles and their inputs. Empty for a macro with steps and for an invalid index.
[[nodiscard]] std::vector<ProfileInput> inputsThatRunNothing(
    const plist::Dictionary& tree, std::size_t macro);

} // namespace quorvi
