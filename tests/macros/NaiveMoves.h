// The moves of steps once more, on a plain list and from the rules: lists are cut and put together, and every
// pair is looked for by itself.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "macros/Steps.h"

namespace quorvi::test {

/// The other half of the step: the next step of the same key, behind a press, or the last one before a
/// release, if that is the opposite.
[[nodiscard]] std::optional<std::size_t> naivePartner(const TestMacro& macro, std::size_t row);

/// Rows in order, each once.
using Rows = std::vector<std::size_t>;

/// The macro after the move and the rows in it of what was moved; nothing when it cannot move.
struct NaivelyMoved {
    TestMacro macro;
    Rows rows;
};
[[nodiscard]] std::optional<NaivelyMoved> naivelyMoved(const TestMacro& macro, const Rows& rows, bool up);
/// Dropped before what stands in the row.
[[nodiscard]] std::optional<NaivelyMoved> naivelyDropped(
    const TestMacro& macro, const Rows& rows, std::size_t before, bool alone);

/// Without the steps and their other halves.
[[nodiscard]] TestMacro naivelyTaken(const TestMacro& macro, const Rows& rows);
/// Only the steps and their other halves.
[[nodiscard]] TestMacro naivelyCopied(const TestMacro& macro, const Rows& rows);
/// With as much of the added steps as has room, in the row or the first one behind it that breaks no pair.
[[nodiscard]] TestMacro naivelyInserted(const TestMacro& macro, std::size_t row, const TestMacro& added);
/// With the steps and their other halves once more behind all of them; as it was when there is no room.
[[nodiscard]] TestMacro naivelyDuplicated(const TestMacro& macro, const Rows& rows);
/// With a press and its release in the row, or where they break no pair.
[[nodiscard]] TestMacro naivelyTapped(const TestMacro& macro, std::size_t row, int press, int argument);
/// With delays of so many tenths.
[[nodiscard]] TestMacro naivelyMultiplied(TestMacro macro, const Rows& rows, int tenths);

} // namespace quorvi::test
