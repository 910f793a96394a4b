// Keyboard layouts of the X keyboard extension. A layout is for one thread at a time: it answers from one
// scratch state.
#pragma once

#include <cstdint>

#include "keyboard/KeyboardLayout.h"
#include "layouts/KeymapNames.h"

struct xkb_keymap;

namespace quorvi {

/// The layout that a keymap's active group is, wherever the keymap comes from (names, the X11 server, a
/// Wayland compositor). It takes a reference of its own to the keymap. A group past the last is the first.
/// Null when the keymap is null.
///
/// Keys are taken by position. Shift, Caps Lock and Option (as AltGr) choose the character, Control turns
/// letters and @ [ \ ] ^ _ into control characters. While Command is held, dead keys type their accent, and a
/// group without Latin letters gives way to the first group of the keymap that has them, else to the US
/// layout: as a whole, so that no two keys answer to one shortcut. The keypad always types digits.
[[nodiscard]] KeyboardLayoutRef makeKeyboardLayout(xkb_keymap* keymap, std::uint32_t group);

/// The first layout of the keymap with these names; null when there is no such keymap.
[[nodiscard]] KeyboardLayoutRef makeKeyboardLayout(const KeymapNames& names);

/// The layout that this machine is configured with, or the US layout when that configuration makes no keymap;
/// null when not even that one is installed.
[[nodiscard]] KeyboardLayoutRef makeDefaultKeyboardLayout();

} // namespace quorvi
