// Reads an own Wayland connection, with a deadline.
#pragma once

#include <chrono>
#include <memory>

#include <wayland-client.h>

namespace quorvi {

struct WaylandRelease {
    void operator()(wl_display* display) const { wl_display_disconnect(display); }
    void operator()(wl_registry* registry) const { wl_registry_destroy(registry); }
    void operator()(wl_callback* callback) const { wl_callback_destroy(callback); }
    void operator()(wl_seat* seat) const;         // tells compositors that support it
    void operator()(wl_keyboard* keyboard) const; // likewise
};

using WaylandDisplay = std::unique_ptr<wl_display, WaylandRelease>;
using WaylandRegistry = std::unique_ptr<wl_registry, WaylandRelease>;
using WaylandCallback = std::unique_ptr<wl_callback, WaylandRelease>;
using WaylandSeat = std::unique_ptr<wl_seat, WaylandRelease>;
using WaylandKeyboard = std::unique_ptr<wl_keyboard, WaylandRelease>;

using Deadline = std::chrono::steady_clock::time_point;

/// Waits for events until the deadline and dispatches them. Returns false if none came or the connection is
/// lost.
[[nodiscard]] bool readWaylandEvents(wl_display& display, Deadline deadline);

/// Waits until the compositor has handled all requests. Returns false if the deadline passes or the
/// connection is lost.
[[nodiscard]] bool waylandRoundtrip(wl_display& display, Deadline deadline);

} // namespace quorvi
