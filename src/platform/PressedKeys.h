// Which keys of the keyboard are down, whoever gets their events.
#pragma once

#include <cstdint>

namespace quorvi {

/// Whether the key is up, as the X server says; it is asked and waited for. False where no such server tells.
[[nodiscard]] bool isKeyKnownToBeUp(std::uint32_t scanCode);

} // namespace quorvi
