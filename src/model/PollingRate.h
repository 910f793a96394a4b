// The polling rate in Hz, and the device's code for it: the interval in milliseconds.
#pragma once

#include <array>
#include <cstdint>

namespace quorvi {

struct PollingRate {
    std::int32_t hertz;
    std::uint8_t code;
};

inline constexpr PollingRate defaultPollingRate = {500, 2};
inline constexpr std::array<PollingRate, 3> pollingRates = {{{125, 8}, defaultPollingRate, {1000, 1}}};

/// The default rate's code for a rate that the device does not offer.
[[nodiscard]] constexpr std::uint8_t pollingRateToCode(std::int32_t hertz) {
    for (const auto& rate : pollingRates) {
        if (rate.hertz == hertz)
            return rate.code;
    }
    return defaultPollingRate.code;
}

/// The default rate for an unknown code.
[[nodiscard]] constexpr std::int32_t codeToPollingRate(std::uint8_t code) {
    for (const auto& rate : pollingRates) {
        if (rate.code == code)
            return rate.hertz;
    }
    return defaultPollingRate.hertz;
}

} // namespace quorvi
