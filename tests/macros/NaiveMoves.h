// The moves of steps once more, on a plain list and from the rules: lists are cut and put together, and every
// pair is looked for by itself.
#pragma once

#include <cstddef>
#include <optional>

#include "macros/Steps.h"

namespace quorvi::test {

/// The other half of the step: the next step of the same key, behind a press, or the last one before a
/// release, if that is the opposite.
[[nodiscard]] std::optional<std::size_t> naivePartner(const TestMacro& macro, std::size_t row);

/// The macro after the move and the step's row in it; nothing when it cannot move.
struct NaivelyMoved {
    TestMacro macro;
    std::size_t row;
};
[[nodiscard]] std::optional<NaivelyMoved> naivelyMoved(const TestMacro& macro, std::size_t row, bool up);

/// Without the step and its other half.
[[nodiscard]] TestMacro naivelyTaken(TestMacro macro, std::size_t row);
/// With the step and its other half once more behind the two; as it was when there is no room.
[[nodiscard]] TestMacro naivelyDuplicated(const TestMacro& macro, std::size_t row);

} // namespace quorvi::test
