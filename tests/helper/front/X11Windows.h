// Test windows on an X display.
#pragma once

#include <memory>
#include <string>

#include <xcb/xcb.h>

namespace quorvi::test {

class X11Windows {
  public:
    explicit X11Windows(const std::string& display);

    /// A window that is shown. Classes and names that are empty are not set.
    [[nodiscard]] xcb_window_t open(
        const std::string& windowClass, const std::string& name = "", pid_t pid = 0) const;
    void setClass(xcb_window_t window, const std::string& windowClass, const std::string& name) const;
    void setTitle(xcb_window_t window, const std::string& title) const;
    void close(xcb_window_t window) const;
    /// Asks the window manager for it, as a pager does (freedesktop.org, Extended Window Manager Hints,
    /// "_NET_ACTIVE_WINDOW"). Returns when the request has been passed on.
    void bringToFront(xcb_window_t window) const;
    /// Returns when the server has done all that was asked.
    void settle() const;
    /// Whether a window manager shows windows. One that is only starting may forget a window, so it is asked
    /// for the window anew at each call.
    [[nodiscard]] bool isManaged();

  private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    [[nodiscard]] xcb_atom_t atom(const std::string& name) const;

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = XCB_NONE;
    xcb_window_t m_probe = XCB_NONE;
};

} // namespace quorvi::test
