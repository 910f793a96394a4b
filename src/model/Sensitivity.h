// Sensitivity in dots per inch, and the device's one-byte code for it: dpi = code x 25 + 100.
#pragma once

#include <cstdint>

namespace quorvi {

inline constexpr std::int32_t lowestDpi = 100;
inline constexpr std::int32_t dpiPerCode = 25;
inline constexpr std::int32_t highestDpi = lowestDpi + 255 * dpiPerCode; // 6475

/// The low 8 bits of (dpi - 100) / 25, truncated toward zero: values between two steps round toward 100.
/// Accepts any number; computed in more than 32 bits, because a file may hold one near the lower limit.
[[nodiscard]] constexpr std::uint8_t dpiToCode(std::int32_t dpi) {
    return static_cast<std::uint8_t>((std::int64_t{dpi} - lowestDpi) / dpiPerCode);
}

/// 100 to 6475.
[[nodiscard]] constexpr std::int32_t codeToDpi(std::uint8_t code) {
    return code * dpiPerCode + lowestDpi;
}

} // namespace quorvi
