// The objects of Qt's Wayland connection. Events requested on it arrive with Qt's own, and relate to our
// focused window.
#pragma once

class QWindow;
struct wl_display;
struct wl_seat;
struct wl_surface;

namespace quorvi {

/// Qt's connection to the compositor; null on any other platform.
[[nodiscard]] wl_display* waylandDisplay();

/// The seat whose keyboard Qt reads; null on any other platform, and before the compositor has announced one.
[[nodiscard]] wl_seat* waylandSeat();

/// The window's surface; null on any other platform, and while the window has none.
[[nodiscard]] wl_surface* waylandSurface(QWindow* window);

} // namespace quorvi
