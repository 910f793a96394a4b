// Profiles and stages are numbered from 1 in the settings and indexed from 0 in their arrays.
#pragma once

#include <cstdint>
#include <limits>

namespace quorvi {

/// The index for a number. Accepts any number, because a file may hold any: numbers below 1 get a negative
/// index, and the lowest integer maps to itself.
[[nodiscard]] constexpr std::int32_t indexOfNumber(std::int32_t number) {
    return number == std::numeric_limits<std::int32_t>::min() ? number : number - 1;
}

} // namespace quorvi
