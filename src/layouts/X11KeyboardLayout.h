// The keyboard layout of the X11 server, over a connection of our own.
#pragma once

#include "layouts/LiveKeyboardLayout.h"

namespace quorvi {

/// The layout of the server that DISPLAY names, of its core keyboard's active group; a change of the keymap
/// or of the group is announced, a press of a key is not. Null when there is no such server, when it refuses,
/// or when it has no X keyboard extension. When the server goes away later, its last layout stays.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> connectToX11Keyboard();

} // namespace quorvi
