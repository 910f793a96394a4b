// The pressed keys of the keyboard, whichever program receives their events.
#pragma once

#include <cstdint>

namespace quorvi {

/// Whether the X server reports the key as up; waits for its answer. Returns false without an X server.
[[nodiscard]] bool isKeyKnownToBeUp(std::uint32_t scanCode);

} // namespace quorvi
