// One layout (group) of a keymap, and the symbols on its keys.
#pragma once

#include <cstdint>

#include "layouts/XkbHandles.h"

namespace quorvi {

/// The modifiers that select a key's level.
struct XkbLevel {
    bool shift = false;
    bool capsLock = false;
    bool levelThree = false; ///< what AltGr yields
    bool numLock = false;
};

/// Whether the group types the Latin alphabet: most of a to z are on its keys without a modifier. (The
/// layouts of xkeyboard-config have 18 or more of them, or at most one that strayed in.)
[[nodiscard]] bool hasLatinLetters(xkb_keymap* keymap, xkb_layout_index_t group);

class XkbGroup {
  public:
    /// Takes its own reference to the keymap, which must not be null and must have the group.
    XkbGroup(xkb_keymap* keymap, xkb_layout_index_t group);

    /// The keysym on the key of the input layer (evdev) at the level; XKB_KEY_NoSymbol if there is none.
    [[nodiscard]] xkb_keysym_t symbol(std::uint16_t evdevKey, const XkbLevel& level) const;

  private:
    /// The real modifiers that the key with the keysym sets. They depend on the keymap.
    [[nodiscard]] xkb_mod_mask_t modifiersOfKey(xkb_keysym_t keysym) const;
    [[nodiscard]] xkb_mod_mask_t modifiersOfName(const char* name) const;
    void setModifiers(xkb_mod_mask_t held, xkb_mod_mask_t locked) const;

    XkbKeymap m_keymap;
    xkb_layout_index_t m_group;
    XkbState m_state; // set for each query
    xkb_mod_mask_t m_shift;
    xkb_mod_mask_t m_capsLock;
    xkb_mod_mask_t m_levelThree;
    xkb_mod_mask_t m_numLock;
};

} // namespace quorvi
