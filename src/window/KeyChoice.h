// A key that the user has chosen.
#pragma once

#include <cstdint>

#include "keyboard/VirtualKeys.h"

namespace quorvi {

/// A key and its modifiers, as in an assignment.
struct KeyChoice {
    std::uint8_t key = noKey;    ///< virtual key code, 255 for none
    std::uint16_t modifiers = 0; ///< modifier word
};

} // namespace quorvi
