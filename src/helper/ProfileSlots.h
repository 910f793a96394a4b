// The parts of profiles that the mouse's record does not hold: full names, applications, options.
#pragma once

#include <array>

#include "model/Limits.h"
#include "plist/Value.h"

namespace quorvi {

/// By slot of the tree's record: the "name" and "driver" of the profile in it. Suitable for
/// KyvarMatchProfile.
[[nodiscard]] plist::Array profilesOfSlots(const plist::Dictionary& tree);

/// The stored factor of each slot; 1 if acceleration is off, and for empty slots.
[[nodiscard]] std::array<float, limits::profiles> accelerationOfSlots(const plist::Array& profiles);

} // namespace quorvi
