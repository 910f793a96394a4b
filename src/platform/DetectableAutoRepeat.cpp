#include "platform/DetectableAutoRepeat.h"

#include <cstdint>

#include "layouts/XcbXkb.h"
#include "platform/XcbConnection.h"

namespace quorvi {

namespace {

int users = 0;

/// Qt's connection to the X server, on which it uses the keyboard extension; null on any other platform.
xcb_connection_t* connectionWithExtension() {
    xcb_connection_t* const connection = qtXcbConnection();
    // A request of a missing extension would close the connection.
    const auto* const extension = connection ? xcb_get_extension_data(connection, &xcb_xkb_id) : nullptr;
    return extension && extension->present ? connection : nullptr;
}

void setDetectable(bool detectable) {
    xcb_connection_t* const connection = connectionWithExtension();
    if (!connection)
        return;
    constexpr std::uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto cookie =
        xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, flag, detectable ? flag : 0, 0, 0, 0);
    xcb_discard_reply(connection, cookie.sequence);
    xcb_flush(connection); // must take effect before the next key
}

} // namespace

DetectableAutoRepeat::DetectableAutoRepeat() {
    if (++users == 1)
        setDetectable(true);
}

DetectableAutoRepeat::~DetectableAutoRepeat() {
    if (--users == 0)
        setDetectable(false);
}

} // namespace quorvi
