#include "layouts/WaylandConnection.h"

#include <algorithm>
#include <cerrno>

#include <poll.h>

namespace quorvi {

namespace {

enum class Readable { yes, no, interrupted };

Readable waitUntilReadable(int fd, Deadline deadline) {
    const auto rest =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    pollfd watched{fd, POLLIN, 0};
    const int ready = poll(&watched, 1, static_cast<int>(std::max(rest.count(), std::int64_t{0})));
    if (ready < 0 && errno == EINTR)
        return Readable::interrupted;
    return ready > 0 ? Readable::yes : Readable::no;
}

} // namespace

void WaylandRelease::operator()(wl_seat* seat) const {
    if (wl_seat_get_version(seat) >= WL_SEAT_RELEASE_SINCE_VERSION)
        wl_seat_release(seat);
    else
        wl_seat_destroy(seat);
}

void WaylandRelease::operator()(wl_keyboard* keyboard) const {
    if (wl_keyboard_get_version(keyboard) >= WL_KEYBOARD_RELEASE_SINCE_VERSION)
        wl_keyboard_release(keyboard);
    else
        wl_keyboard_destroy(keyboard);
}

bool readWaylandEvents(wl_display& display, Deadline deadline) {
    if (wl_display_prepare_read(&display) != 0)
        return wl_display_dispatch_pending(&display) > 0; // some were read earlier
    wl_display_flush(&display);
    const Readable readable = waitUntilReadable(wl_display_get_fd(&display), deadline);
    if (readable != Readable::yes) {
        wl_display_cancel_read(&display);
        return readable == Readable::interrupted;
    }
    return wl_display_read_events(&display) == 0 && wl_display_dispatch_pending(&display) >= 0;
}

bool waylandRoundtrip(wl_display& display, Deadline deadline) {
    bool answered = false;
    const WaylandCallback callback(wl_display_sync(&display));
    if (!callback)
        return false;
    static constexpr wl_callback_listener listener{
        [](void* data, wl_callback*, std::uint32_t) { *static_cast<bool*>(data) = true; }};
    wl_callback_add_listener(callback.get(), &listener, &answered);
    while (!answered && readWaylandEvents(display, deadline)) {
    }
    return answered;
}

} // namespace quorvi
