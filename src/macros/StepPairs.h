// Which press of a macro belongs to which release.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

/// A step's effect on a key or on the mouse buttons, whose releases do not name a button.
struct StepMovement {
    bool isPress = false;
    bool isButton = false;
    std::int32_t key = 0; ///< a key's USB usage, the step's argument; 0 for a button

    /// Whether both are for the same key, or both for mouse buttons.
    [[nodiscard]] bool concernsSameAs(const StepMovement& other) const {
        return isButton == other.isButton && key == other.key;
    }
};

/// std::nullopt for a missing step and for a code that recordings do not write.
[[nodiscard]] std::optional<StepMovement> movementOfStep(const plist::Dictionary& step);

/// For each step the index of its other half; std::nullopt for a step without one. A release belongs to the
/// last press of the same key (or of any mouse button) before it, unless another release is between them. So
/// if a key is pressed twice before its release, the first press has no other half.
using StepPairs = std::vector<std::optional<std::size_t>>;

/// The pairs of the macro's steps; empty for nil.
[[nodiscard]] StepPairs pairsOf(const plist::Array& steps);
/// The same for any values; some may not be steps.
[[nodiscard]] StepPairs pairsOf(const plist::Array::Items& steps);

/// The indices of the steps and of their other halves, in order; those past the end are left out.
[[nodiscard]] std::vector<std::size_t> withPartners(
    const StepPairs& pairs, const std::vector<std::size_t>& indices);
[[nodiscard]] std::vector<std::size_t> stepsWithPartners(
    const plist::Array& steps, const std::vector<std::size_t>& indices);

} // namespace quorvi
