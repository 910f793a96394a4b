// What the mouse's record does not hold of its profiles: names as they are, applications, options.
#pragma once

#include <array>

#include "model/Limits.h"
#include "plist/Value.h"

namespace quorvi {

/// By slot of the record that is made of the tree: the "name" and "driver" of the profile there, and nothing
/// else of it. KyvarMatchProfile takes it.
[[nodiscard]] plist::Array profilesOfSlots(const plist::Dictionary& tree);

/// The factor of each slot, as it is stored; 1 where acceleration is switched off, and in empty slots.
[[nodiscard]] std::array<float, limits::profiles> accelerationOfSlots(const plist::Array& profiles);

} // namespace quorvi
