#include "layouts/XkbGroup.h"

#include <bitset>

#include "layouts/EvdevKeys.h"

namespace quorvi {

bool hasLatinLetters(xkb_keymap* keymap, xkb_layout_index_t group) {
    std::bitset<26> letters;
    for (xkb_keycode_t key = xkb_keymap_min_keycode(keymap); key <= xkb_keymap_max_keycode(keymap); ++key) {
        const xkb_keysym_t* symbols = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(keymap, key, group, 0, &symbols);
        if (count == 1 && symbols[0] >= XKB_KEY_a && symbols[0] <= XKB_KEY_z)
            letters.set(symbols[0] - XKB_KEY_a);
    }
    return letters.count() >= letters.size() / 2;
}

XkbGroup::XkbGroup(xkb_keymap* keymap, xkb_layout_index_t group)
    : m_keymap(xkb_keymap_ref(keymap)), m_group(group), m_state(xkb_state_new(keymap)),
      m_shift(modifiersOfName(XKB_MOD_NAME_SHIFT)), m_capsLock(modifiersOfName(XKB_MOD_NAME_CAPS)),
      m_levelThree(modifiersOfKey(XKB_KEY_ISO_Level3_Shift)), m_numLock(modifiersOfKey(XKB_KEY_Num_Lock)) {}

xkb_keysym_t XkbGroup::symbol(std::uint16_t evdevKey, const XkbLevel& level) const {
    setModifiers((level.shift ? m_shift : 0) | (level.levelThree ? m_levelThree : 0),
        (level.capsLock ? m_capsLock : 0) | (level.numLock ? m_numLock : 0));
    return xkb_state_key_get_one_sym(m_state.get(), evdevKey + xkbKeycodeOffset);
}

xkb_mod_mask_t XkbGroup::modifiersOfKey(xkb_keysym_t keysym) const {
    setModifiers(0, 0);
    for (xkb_keycode_t key = xkb_keymap_min_keycode(m_keymap.get());
         key <= xkb_keymap_max_keycode(m_keymap.get()); ++key) {
        if (xkb_state_key_get_one_sym(m_state.get(), key) != keysym)
            continue;
        xkb_state_update_key(m_state.get(), key, XKB_KEY_DOWN);
        const xkb_mod_mask_t set = xkb_state_serialize_mods(m_state.get(), XKB_STATE_MODS_EFFECTIVE);
        xkb_state_update_key(m_state.get(), key, XKB_KEY_UP);
        if (set != 0)
            return set;
    }
    return 0;
}

xkb_mod_mask_t XkbGroup::modifiersOfName(const char* name) const {
    const xkb_mod_index_t index = xkb_keymap_mod_get_index(m_keymap.get(), name);
    return index == XKB_MOD_INVALID ? 0 : xkb_mod_mask_t{1} << index;
}

void XkbGroup::setModifiers(xkb_mod_mask_t held, xkb_mod_mask_t locked) const {
    xkb_state_update_mask(m_state.get(), held, 0, locked, 0, 0, m_group);
}

} // namespace quorvi
