// Moves steps of a macro. Pairs (StepPairs.h) stay pairs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

enum class MoveDirection : std::uint8_t { up, down };

enum class MovedStep : std::uint8_t {
    keepingPairs, ///< no pair of the macro may be separated
    alone,        ///< the steps alone, even if that separates pairs
};

/// Indices of steps in a macro, in order and without repetition.
using StepPlaces = std::vector<std::size_t>;

/// The new indices that moveSteps() would return; std::nullopt if the steps cannot move there.
[[nodiscard]] std::optional<StepPlaces> placesOfMovedSteps(const plist::Array& steps,
    const StepPlaces& indices, MoveDirection direction, MovedStep moved = MovedStep::keepingPairs);

/// Moves the steps by one place each and returns their new indices. If that would break a pair, the other
/// halves move too, and all move past any step whose pair they would break; a single step's other half moves
/// only if it is next to it. A step without another half moves freely. The delays move with the steps, but
/// the last step stays without one: a step that leaves the last place without a delay exchanges delays with
/// the one that comes there. Returns std::nullopt and changes nothing if the steps cannot move there, or if
/// there are none.
std::optional<StepPlaces> moveSteps(const plist::Array& steps, const StepPlaces& indices,
    MoveDirection direction, MovedStep moved = MovedStep::keepingPairs);

/// The steps that dropSteps() would move; std::nullopt if it would move none.
[[nodiscard]] std::optional<StepPlaces> stepsMovedByDrop(const plist::Array& steps, const StepPlaces& indices,
    std::size_t place, MovedStep moved = MovedStep::keepingPairs);

/// Moves the steps, one after the other, to before the one at the place, or to the end, and returns the new
/// indices of the moved ones. Other halves next to them move too, and if a pair would still break, all other
/// halves do. Delays move as in moveSteps(). Returns std::nullopt and changes nothing if a pair would break
/// anyway, or if all are there already.
std::optional<StepPlaces> dropSteps(const plist::Array& steps, const StepPlaces& indices, std::size_t place,
    MovedStep moved = MovedStep::keepingPairs);

} // namespace quorvi
