// New steps of macros.
#pragma once

#include <cstdint>

#include "plist/Value.h"

namespace quorvi {

/// A step with the code (StepCodes.h) and its argument, and the delay behind it in milliseconds.
[[nodiscard]] plist::Dictionary makeStep(std::uint32_t code, std::uint8_t argument, std::int32_t delay = 0);

} // namespace quorvi
