// The inputs of the mouse by their numbers.
#pragma once

#include <cstdint>

namespace quorvi {

/// Inputs 1 to 7 are buttons; 8 and 9 are the wheel's two directions.
inline constexpr int lastButton = 7;
inline constexpr int wheelUp = 8;
inline constexpr int wheelDown = 9;

/// Buttons 1 to 7, as bits.
inline constexpr std::uint32_t allButtons = 127;

/// All buttons but the input, as bits.
constexpr std::uint32_t buttonsBut(int input) {
    return allButtons & ~(1U << (input - 1));
}

} // namespace quorvi
