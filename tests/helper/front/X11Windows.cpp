#include "helper/front/X11Windows.h"

#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace quorvi::test {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

void setText(
    xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property, const std::string& text) {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_STRING, 8,
        static_cast<std::uint32_t>(text.size()), text.data());
}

} // namespace

X11Windows::X11Windows(const std::string& display) : m_connection(xcb_connect(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(m_connection.get()) != 0)
        throw std::runtime_error("no display " + display);
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
}

xcb_window_t X11Windows::open(const std::string& windowClass, const std::string& name, pid_t pid) const {
    auto* connection = m_connection.get();
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, m_root, 0, 0, 100, 100, 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    if (!windowClass.empty() || !name.empty())
        setClass(window, windowClass, name);
    if (pid != 0)
        xcb_change_property(
            connection, XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, 1, &pid);
    xcb_map_window(connection, window);
    settle();
    return window;
}

void X11Windows::setClass(
    xcb_window_t window, const std::string& windowClass, const std::string& name) const {
    setText(m_connection.get(), window, XCB_ATOM_WM_CLASS, name + '\0' + windowClass + '\0');
    settle();
}

void X11Windows::setTitle(xcb_window_t window, const std::string& title) const {
    setText(m_connection.get(), window, XCB_ATOM_WM_NAME, title);
    settle();
}

void X11Windows::close(xcb_window_t window) const {
    xcb_destroy_window(m_connection.get(), window);
    settle();
}

void X11Windows::bringToFront(xcb_window_t window) const {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = 2; // a pager
    xcb_send_event(m_connection.get(), 0, m_root,
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&message));
    settle();
}

void X11Windows::settle() const {
    const auto question = xcb_get_input_focus(m_connection.get());
    const std::unique_ptr<xcb_get_input_focus_reply_t, Free> answer(
        xcb_get_input_focus_reply(m_connection.get(), question, nullptr));
}

bool X11Windows::isManaged() {
    if (m_probe == XCB_NONE)
        m_probe = open("Probe");
    xcb_map_window(m_connection.get(), m_probe);
    const auto question =
        xcb_get_property(m_connection.get(), 0, m_probe, atom("WM_STATE"), XCB_GET_PROPERTY_TYPE_ANY, 0, 1);
    const std::unique_ptr<xcb_get_property_reply_t, Free> answer(
        xcb_get_property_reply(m_connection.get(), question, nullptr));
    if (!answer || xcb_get_property_value_length(answer.get()) == 0)
        return false;
    close(std::exchange(m_probe, XCB_NONE));
    return true;
}

xcb_atom_t X11Windows::atom(const std::string& name) const {
    const auto question =
        xcb_intern_atom(m_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> answer(
        xcb_intern_atom_reply(m_connection.get(), question, nullptr));
    return answer ? answer->atom : xcb_atom_t{XCB_NONE};
}

} // namespace quorvi::test
