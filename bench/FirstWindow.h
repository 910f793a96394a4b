// Detects from outside when a program's first window has been drawn.
#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include <sys/types.h>
#include <xcb/xcb.h>

#include "bench/Figures.h"

namespace quorvi::bench {

class FirstWindow {
  public:
    /// Watches the display of this process from now on. Throws if there is none, or if it does not report
    /// drawing.
    FirstWindow();

    /// The moment when the program has first drawn into a mapped window of its own; std::nullopt if that
    /// takes longer than the patience.
    [[nodiscard]] std::optional<Clock::time_point> waitFor(pid_t program, std::chrono::seconds patience);

  private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    [[nodiscard]] xcb_atom_t atom(const char* name) const;
    [[nodiscard]] pid_t ownerOf(xcb_window_t window) const;
    void reportDrawing(xcb_window_t window);

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_atom_t m_pid = XCB_ATOM_NONE;
    std::uint8_t m_drawnEvent = 0;
};

} // namespace quorvi::bench
