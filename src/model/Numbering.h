// Profiles and stages are numbered from 1 in the settings and indexed from 0 in their arrays.
#pragma once

#include <cstdint>
#include <limits>

namespace quorvi {

/// The index of what has the number. Takes any number, because a file may hold any: what is numbered below 1
/// gets a negative index, the lowest number of all its own value.
[[nodiscard]] constexpr std::int32_t indexOfNumber(std::int32_t number) {
    return number == std::numeric_limits<std::int32_t>::min() ? number : number - 1;
}

} // namespace quorvi
