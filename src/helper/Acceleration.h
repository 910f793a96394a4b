// The acceleration of each profile, which the mouse's record does not hold.
#pragma once

#include <array>

#include "model/Limits.h"
#include "plist/Value.h"

namespace quorvi {

/// By slot of the record that is made of the tree: the factor of the profile there, as it is stored; 1 where
/// acceleration is switched off, and in empty slots.
[[nodiscard]] std::array<float, limits::profiles> accelerationOfSlots(const plist::Dictionary& tree);

} // namespace quorvi
