// The keyboard layout of the Wayland compositor.
//
// A compositor sends its keymap to every client, but the active group only to the client with the focus;
// others see the first group.
#pragma once

#include "layouts/LiveKeyboardLayout.h"

struct wl_display;

namespace quorvi {

/// The layout of WAYLAND_DISPLAY's compositor, over its own connection. Null if there is no such compositor,
/// it has no keyboard, or it does not answer within 250 ms. If the compositor goes away later, its last
/// layout stays.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> connectToWaylandKeyboard();

/// The layout of the compositor on a connection that other code reads and dispatches, with its default queue
/// and on this thread. It must outlive the returned object. The keymap is announced as a change, shortly
/// after this call.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> borrowWaylandKeyboard(wl_display& display);

} // namespace quorvi
