// Orders of a macro's steps, and whether they keep its pairs.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "macros/StepPairs.h"
#include "plist/Value.h"

namespace quorvi {

/// For each place, the index of the step that is there now.
using StepOrder = std::vector<std::size_t>;

/// Each step in its place.
[[nodiscard]] StepOrder unchangedOrder(std::size_t count);
[[nodiscard]] plist::Array::Items inOrder(const plist::Array::Items& items, const StepOrder& order);
/// The place of the step with the index in the order.
[[nodiscard]] std::size_t placeIn(const StepOrder& order, std::size_t index);

/// The order with the chosen steps, one after the other, before the one at the place, or at the end.
[[nodiscard]] StepOrder gatheredOrder(
    std::size_t count, const std::vector<std::size_t>& chosen, std::size_t place);

/// Whether each pair is still a pair in the other order of the items.
[[nodiscard]] bool keepsPairs(
    const StepPairs& pairs, const plist::Array::Items& items, const StepOrder& order);

} // namespace quorvi
