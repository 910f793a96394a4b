#include "platform/PressedKeys.h"

#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

#include "platform/XcbConnection.h"

namespace quorvi {

bool isKeyKnownToBeUp(std::uint32_t scanCode) {
    xcb_connection_t* const connection = qtXcbConnection();
    if (!connection)
        return false;
    const std::unique_ptr<xcb_query_keymap_reply_t, decltype(&std::free)> keymap(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr), std::free);
    constexpr std::uint32_t kBitsOfAByte = 8;
    return keymap && scanCode < sizeof keymap->keys * kBitsOfAByte &&
           (keymap->keys[scanCode / kBitsOfAByte] >> (scanCode % kBitsOfAByte) & 1U) == 0;
}

} // namespace quorvi
