// The keymap that a Wayland compositor sends in a file.
#pragma once

#include <cstdint>

#include "layouts/XkbHandles.h"

namespace quorvi {

/// The largest accepted keymap, in bytes; those of xkeyboard-config stay below 100,000.
inline constexpr std::uint32_t largestKeymap = 4 * 1024 * 1024;

/// The keymap in the first bytes of the file: text of the X keyboard extension, version 1, ended by a zero.
/// Null if it is empty or too large, larger than the file, not ended or not a keymap. The file stays open.
[[nodiscard]] XkbKeymap keymapInFile(int fd, std::uint32_t size);

} // namespace quorvi
