// The keyboard layout of the Wayland compositor.
//
// A compositor gives its keymap to everybody, but the active group only to the client whose window has the
// focus; others see the first group.
#pragma once

#include "layouts/LiveKeyboardLayout.h"

struct wl_display;

namespace quorvi {

/// The layout of the compositor that WAYLAND_DISPLAY names, over a connection of its own. Null when there is
/// no such compositor, when it has no keyboard, and when it does not answer within 250 ms. When the
/// compositor goes away later, its last layout stays.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> connectToWaylandKeyboard();

/// The layout of the compositor at the other end of a connection that somebody else reads and dispatches, by
/// its default queue and on this thread. It must outlive the returned object. The keymap is announced as a
/// change, shortly after this call.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> borrowWaylandKeyboard(wl_display& display);

} // namespace quorvi
