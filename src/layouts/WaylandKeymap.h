// The keymap that a Wayland compositor hands over in a file.
#pragma once

#include <cstdint>

#include "layouts/XkbHandles.h"

namespace quorvi {

/// What a keymap may have, in bytes; those of xkeyboard-config stay below 100,000.
inline constexpr std::uint32_t largestKeymap = 4 * 1024 * 1024;

/// The keymap in the first bytes of the file: text of the X keyboard extension, version 1, ended by a zero.
/// Null when it is empty or too large, larger than the file, not ended or no keymap. The file stays open.
[[nodiscard]] XkbKeymap keymapInFile(int fd, std::uint32_t size);

} // namespace quorvi
