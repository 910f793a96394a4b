// Keyboard layouts of the X keyboard extension. A layout is for one thread at a time: it uses one scratch
// state.
#pragma once

#include <cstdint>

#include "keyboard/KeyboardLayout.h"
#include "layouts/KeymapNames.h"

struct xkb_keymap;

namespace quorvi {

/// The layout of a keymap's active group, for keymaps from names, the X11 server or a Wayland compositor.
/// Takes its own reference to the keymap. A group past the last counts as the first. Null if the keymap is
/// null.
///
/// Keys are identified by position. Shift, Caps Lock and Option (as AltGr) choose the character, Control
/// turns letters and @ [ \ ] ^ _ into control characters. While Command is held, dead keys type their accent,
/// and a group without Latin letters is replaced by the keymap's first group with them, else by the US
/// layout: as a whole, so that no two keys trigger the same shortcut. The keypad always types digits.
[[nodiscard]] KeyboardLayoutRef makeKeyboardLayout(xkb_keymap* keymap, std::uint32_t group);

/// The first layout of the keymap with these names; null if there is no such keymap.
[[nodiscard]] KeyboardLayoutRef makeKeyboardLayout(const KeymapNames& names);

/// The machine's configured layout, or the US layout if the configuration yields no keymap; null if not even
/// that is installed.
[[nodiscard]] KeyboardLayoutRef makeDefaultKeyboardLayout();

} // namespace quorvi
