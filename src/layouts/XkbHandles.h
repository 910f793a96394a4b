// Owners of libxkbcommon's objects.
#pragma once

#include <memory>

#include <xkbcommon/xkbcommon.h>

namespace quorvi {

struct XkbRelease {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};

using XkbContext = std::unique_ptr<xkb_context, XkbRelease>;
using XkbKeymap = std::unique_ptr<xkb_keymap, XkbRelease>;
using XkbState = std::unique_ptr<xkb_state, XkbRelease>;

/// A context that ignores the environment's names and prints no errors about keymaps; null if out of memory.
[[nodiscard]] XkbContext newXkbContext();

} // namespace quorvi
