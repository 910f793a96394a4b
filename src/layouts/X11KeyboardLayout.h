// The keyboard layout of the X11 server, over our own connection.
#pragma once

#include "layouts/LiveKeyboardLayout.h"

namespace quorvi {

/// The layout of the server that DISPLAY names, of its core keyboard's active group; it receives changes of
/// the keymap and the group, but no key presses. Null if there is no such server, it refuses, or it lacks the
/// X keyboard extension. If the server goes away later, its last layout stays.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> connectToX11Keyboard();

} // namespace quorvi
