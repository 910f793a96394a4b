// Adds and removes steps of a macro. Pairs (StepPairs.h) stay pairs.
#pragma once

#include <cstddef>
#include <cstdint>

#include "macros/StepMoves.h"
#include "plist/Value.h"

namespace quorvi {

/// Independent copies of the steps.
[[nodiscard]] plist::Array copyOfSteps(const plist::Array& steps, const StepPlaces& indices);
/// Removes the steps.
void takeSteps(const plist::Array& steps, const StepPlaces& indices);

/// The result of an insertion.
struct InsertedSteps {
    std::size_t first = 0;   ///< the index of the first inserted step
    std::size_t count = 0;   ///< how many were inserted
    std::size_t leftOut = 0; ///< how many had no room
};

/// Inserts the added steps at the place, or at the first place after it that is not between the halves of a
/// pair of the same key. The array of added steps stays unchanged, but its steps then belong to the macro. A
/// macro has at most sixteen steps: the first ones that fit are inserted, and no press without its release.
/// Without a macro, all are left out.
InsertedSteps insertSteps(const plist::Array& steps, std::size_t place, const plist::Array& added);

/// Whether there is room for copies of the steps and of their other halves; false without steps.
[[nodiscard]] bool canDuplicateSteps(const plist::Array& steps, const StepPlaces& indices);
/// Inserts copies of the steps and of their other halves after all of them; does nothing without room for
/// all.
InsertedSteps duplicateSteps(const plist::Array& steps, const StepPlaces& indices);

/// Inserts the press with the code and argument, and its release (matchingCommand()), 50 ms apart, as
/// insertSteps() does. The release gets the same delay, and so does the former last step if it had none. Does
/// nothing without room for both.
InsertedSteps insertTap(
    const plist::Array& steps, std::size_t place, std::uint32_t press, std::uint8_t argument);

} // namespace quorvi
