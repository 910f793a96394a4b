// Events of the Linux input layer.
#pragma once

#include <cstdint>

#include <linux/input.h>

namespace quorvi::engine {

/// The event's time is zero.
[[nodiscard]] constexpr input_event eventOf(std::uint16_t type, std::uint16_t code, std::int32_t value) {
    input_event event{};
    event.type = type;
    event.code = code;
    event.value = value;
    return event;
}

} // namespace quorvi::engine
