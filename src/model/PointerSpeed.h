// The effect of an acceleration factor on the pointer: the curve that the panel draws and the mouse follows.
#pragma once

namespace quorvi {

inline constexpr float lowestAcceleration = 0.1F;
inline constexpr float neutralAcceleration = 1.0F;
inline constexpr float highestAcceleration = 2.0F;

/// The factor to use for a stored one: itself from 0.1 to 2.0; 1 for any other value, including NaN.
[[nodiscard]] constexpr float effectiveAcceleration(float factor) {
    return factor >= lowestAcceleration && factor <= highestAcceleration ? factor : neutralAcceleration;
}

/// The pointer's speed at the hand's speed, both as shares of the fastest: equal while the hand is slow, and
/// the factor times as fast at 1. It rises everywhere, and equals the hand's speed for the factor 1. The
/// speed is 0 to 1, the factor above 0.
[[nodiscard]] constexpr double pointerSpeed(double handSpeed, double factor) {
    return handSpeed / (1.0 + (1.0 / factor - 1.0) * handSpeed);
}

} // namespace quorvi
