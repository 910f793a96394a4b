// Reading a Wayland connection of one's own, never longer than until a deadline.
#pragma once

#include <chrono>
#include <memory>

#include <wayland-client.h>

namespace quorvi {

struct WaylandRelease {
    void operator()(wl_display* display) const { wl_display_disconnect(display); }
    void operator()(wl_registry* registry) const { wl_registry_destroy(registry); }
    void operator()(wl_callback* callback) const { wl_callback_destroy(callback); }
    void operator()(wl_seat* seat) const;         // says so to a compositor that can hear it
    void operator()(wl_keyboard* keyboard) const; // likewise
};

using WaylandDisplay = std::unique_ptr<wl_display, WaylandRelease>;
using WaylandRegistry = std::unique_ptr<wl_registry, WaylandRelease>;
using WaylandCallback = std::unique_ptr<wl_callback, WaylandRelease>;
using WaylandSeat = std::unique_ptr<wl_seat, WaylandRelease>;
using WaylandKeyboard = std::unique_ptr<wl_keyboard, WaylandRelease>;

using Deadline = std::chrono::steady_clock::time_point;

/// Waits for events until the deadline and dispatches them. False when none came, or when the connection is
/// lost.
[[nodiscard]] bool readWaylandEvents(wl_display& display, Deadline deadline);

/// Waits until the compositor has dealt with all that it was asked. False when it has not by the deadline, or
/// when the connection is lost.
[[nodiscard]] bool waylandRoundtrip(wl_display& display, Deadline deadline);

} // namespace quorvi
