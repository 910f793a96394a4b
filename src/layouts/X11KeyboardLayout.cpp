#include "layouts/X11KeyboardLayout.h"

#include <cstdlib>
#include <optional>

#include <xkbcommon/xkbcommon-x11.h>

#include "layouts/XcbXkb.h"
#include "layouts/XkbHandles.h"
#include "layouts/XkbKeyboardLayout.h"

namespace quorvi {

namespace {

struct XcbRelease {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    void operator()(xcb_generic_event_t* event) const { std::free(event); } // NOLINT(*-no-malloc): from xcb
};

using XcbConnection = std::unique_ptr<xcb_connection_t, XcbRelease>;
using XcbEvent = std::unique_ptr<xcb_generic_event_t, XcbRelease>;

/// The number of the extension's events; std::nullopt if the server lacks it.
std::optional<std::uint8_t> setUpExtension(xcb_connection_t* connection) {
    std::uint8_t firstEvent = 0;
    if (xkb_x11_setup_xkb_extension(connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &firstEvent, nullptr) == 0)
        return std::nullopt;
    return firstEvent;
}

/// Subscribes to new-keyboard, new-keymap and group-change events. Of the keyboard's state only the group is
/// selected, so modifier presses do not wake the process.
void selectChanges(xcb_connection_t* connection) {
    constexpr std::uint16_t maps = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                   XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS |
                                   XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    xcb_xkb_select_events_details_t details{};
    details.affectState = XCB_XKB_STATE_PART_GROUP_STATE;
    details.stateDetails = XCB_XKB_STATE_PART_GROUP_STATE;
    xcb_xkb_select_events_aux(connection, XCB_XKB_ID_USE_CORE_KBD,
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY |
            XCB_XKB_EVENT_TYPE_STATE_NOTIFY,
        0, XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY, maps, maps, &details);
}

class X11KeyboardLayout final : public LiveKeyboardLayout {
  public:
    X11KeyboardLayout(XcbConnection connection, std::uint8_t firstEvent)
        : m_connection(std::move(connection)), m_firstEvent(firstEvent) {
        selectChanges(m_connection.get());
    }

    [[nodiscard]] int fd() const override {
        return xcb_connection_has_error(m_connection.get()) == 0 ? xcb_get_file_descriptor(m_connection.get())
                                                                 : -1;
    }

    void process() override { take(xcb_poll_for_event); }

  protected:
    [[nodiscard]] KeyboardLayoutRef read() override {
        KeyboardLayoutRef layout = readKeymap();
        // Events received between the answers are no longer in the socket, so they would not wake the
        // process.
        take(xcb_poll_for_queued_event);
        return layout;
    }

  private:
    [[nodiscard]] KeyboardLayoutRef readKeymap() const;
    void take(xcb_generic_event_t* (*next)(xcb_connection_t*));

    XcbConnection m_connection;
    std::uint8_t m_firstEvent;
};

KeyboardLayoutRef X11KeyboardLayout::readKeymap() const {
    const XkbContext context = newXkbContext();
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(m_connection.get());
    if (!context || device < 0)
        return nullptr;
    const XkbKeymap keymap(xkb_x11_keymap_new_from_device(
        context.get(), m_connection.get(), device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap)
        return nullptr;
    const XkbState state(xkb_x11_state_new_from_device(keymap.get(), m_connection.get(), device));
    if (!state)
        return nullptr;
    return makeKeyboardLayout(
        keymap.get(), xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE));
}

void X11KeyboardLayout::take(xcb_generic_event_t* (*next)(xcb_connection_t*)) {
    bool announced = false;
    while (const XcbEvent event{next(m_connection.get())})
        announced = announced || (event->response_type & 0x7F) == m_firstEvent;
    if (announced)
        changed();
}

} // namespace

std::unique_ptr<LiveKeyboardLayout> connectToX11Keyboard() {
    XcbConnection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return nullptr;
    const std::optional<std::uint8_t> firstEvent = setUpExtension(connection.get());
    if (!firstEvent)
        return nullptr;
    return std::make_unique<X11KeyboardLayout>(std::move(connection), *firstEvent);
}

} // namespace quorvi
