// Which press of a macro belongs to which release.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

/// What a step does to a key or to the mouse buttons, whose releases do not say which button they are for.
struct Movement {
    bool isPress = false;
    bool isButton = false;
    std::int32_t key = 0; ///< the argument: of a key its USB usage, of a button 0

    /// The two concern the same key, or both the mouse buttons.
    [[nodiscard]] bool concernsSameAs(const Movement& other) const {
        return isButton == other.isButton && key == other.key;
    }
};

/// Nothing for a missing step and for a code that recordings do not write.
[[nodiscard]] std::optional<Movement> movementOfStep(const plist::Dictionary& step);

/// For each step the index of its other half, or nothing for a step that stands alone. A release belongs to
/// the last press before it of the same key, or of any mouse button, unless another release stands between
/// them: so a key that is pressed twice before its release leaves the first press alone.
using StepPairs = std::vector<std::optional<std::size_t>>;

/// The pairs of the macro's steps; empty for nil.
[[nodiscard]] StepPairs pairsOf(const plist::Array& steps);
/// The same of any order of values, of which some may be no steps.
[[nodiscard]] StepPairs pairsOf(const plist::Array::Items& steps);

/// The indices of the step and, if it has one, of its other half, in order; none for an index past the end.
[[nodiscard]] std::vector<std::size_t> stepWithPartner(const plist::Array& steps, std::size_t index);

} // namespace quorvi
