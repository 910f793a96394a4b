// The steps of a macro in another order, fewer or more of them. Whatever was a pair (StepPairs.h) stays one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "macros/StepPairs.h"
#include "plist/Value.h"

namespace quorvi {

enum class MoveDirection : std::uint8_t { up, down };

enum class MovedStep : std::uint8_t {
    keepingPairs, ///< no pair of the macro may come apart by it
    alone,        ///< the step by itself, whatever becomes of the pairs
};

/// Where the step would come to, as moveStep() moves it; nothing when it cannot move there.
[[nodiscard]] std::optional<std::size_t> placeOfMovedStep(const plist::Array& steps, std::size_t index,
    MoveDirection direction, MovedStep moved = MovedStep::keepingPairs);

/// Moves the step by one place, and gives its new index. A press that stands right before its release takes
/// it along, and so does the release the press; both then pass whatever they would break. A step without
/// another half moves freely. The delay goes with the step, except that the last one keeps having nothing to
/// wait for: the step that leaves the last place without a delay exchanges delays with the one that comes
/// there. Nothing, and no change, when the step cannot move there.
std::optional<std::size_t> moveStep(const plist::Array& steps, std::size_t index, MoveDirection direction,
    MovedStep moved = MovedStep::keepingPairs);

/// Independent copies of the steps at the indices, which must be in order.
[[nodiscard]] plist::Array copyOfSteps(const plist::Array& steps, const std::vector<std::size_t>& indices);
/// Removes the steps at the indices, which must be in order.
void takeSteps(const plist::Array& steps, const std::vector<std::size_t>& indices);

/// What came of an insertion.
struct InsertedSteps {
    std::size_t first = 0;   ///< the index of the first one
    std::size_t count = 0;   ///< how many there are now
    std::size_t leftOut = 0; ///< how many had no room
};

/// Inserts the added steps at the place, or at the first place behind it where nothing comes between the
/// halves of a pair of the same key; the array of added steps stays as it is, and its steps belong to the
/// macro then. A macro has at most sixteen steps: the first ones that have room are inserted, and no press
/// without its release. Without a macro all are left out.
InsertedSteps insertSteps(const plist::Array& steps, std::size_t place, const plist::Array& added);

/// Whether there is room for another of the step, with its other half.
[[nodiscard]] bool canDuplicateStep(const plist::Array& steps, std::size_t index);
/// Inserts copies of the step and its other half behind the two; does nothing without room for both.
InsertedSteps duplicateStep(const plist::Array& steps, std::size_t index);

} // namespace quorvi
