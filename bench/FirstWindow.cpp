#include "bench/FirstWindow.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include <poll.h>
#include <sys/uio.h>
#include <xcb/xcbext.h>

namespace quorvi::bench {

namespace {

// The two requests and the event of the DAMAGE extension that are needed here; its library would be another
// package.
xcb_extension_t damageExtension{"DAMAGE", 0};
constexpr std::uint8_t kQueryVersion = 0;
constexpr std::uint8_t kCreate = 1;
constexpr std::uint32_t kReportWhenNoLongerEmpty = 3;

/// Sends a request whose body is the numbers; xcb fills the header in.
template <std::size_t Count>
unsigned sendDamageRequest(xcb_connection_t* connection, std::uint8_t opcode, bool isAnswered,
    std::array<std::uint32_t, Count> numbers) {
    const xcb_protocol_request_t request{2, &damageExtension, opcode, static_cast<std::uint8_t>(!isAnswered)};
    struct {
        std::uint32_t header;
        std::array<std::uint32_t, Count> body;
    } bytes{0, numbers};
    std::array<iovec, 4> parts{}; // two before the first are xcb's own
    parts[2] = {&bytes, sizeof bytes};
    parts[3] = {nullptr, 0};
    return xcb_send_request(connection, isAnswered ? XCB_REQUEST_CHECKED : 0, &parts[2], &request);
}

struct Free {
    void operator()(void* memory) const { std::free(memory); } // as xcb asks of its callers
};
template <typename T>
using Answer = std::unique_ptr<T, Free>;

} // namespace

FirstWindow::FirstWindow() : m_connection(xcb_connect(nullptr, nullptr)) {
    auto* connection = m_connection.get();
    if (xcb_connection_has_error(connection))
        throw std::runtime_error("no display");
    const auto* extension = xcb_get_extension_data(connection, &damageExtension);
    if (!extension || !extension->present)
        throw std::runtime_error("the display does not report what is drawn");
    m_drawnEvent = extension->first_event;
    const auto version = sendDamageRequest<2>(connection, kQueryVersion, true, {1, 1});
    const Answer<void> answer(xcb_wait_for_reply(connection, version, nullptr));
    m_pid = atom("_NET_WM_PID");
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection);
}

xcb_atom_t FirstWindow::atom(const char* name) const {
    const auto request =
        xcb_intern_atom(m_connection.get(), 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Answer<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(m_connection.get(), request, nullptr));
    return answer ? answer->atom : xcb_atom_t{XCB_ATOM_NONE};
}

pid_t FirstWindow::ownerOf(xcb_window_t window) const {
    const auto request = xcb_get_property(m_connection.get(), 0, window, m_pid, XCB_ATOM_CARDINAL, 0, 1);
    const Answer<xcb_get_property_reply_t> answer(
        xcb_get_property_reply(m_connection.get(), request, nullptr));
    std::uint32_t pid = 0;
    if (answer && xcb_get_property_value_length(answer.get()) == sizeof pid)
        std::memcpy(&pid, xcb_get_property_value(answer.get()), sizeof pid);
    return static_cast<pid_t>(pid);
}

void FirstWindow::reportDrawing(xcb_window_t window) {
    sendDamageRequest<3>(m_connection.get(), kCreate, false,
        {xcb_generate_id(m_connection.get()), window, kReportWhenNoLongerEmpty});
    xcb_flush(m_connection.get());
}

std::optional<Clock::time_point> FirstWindow::waitFor(pid_t program, std::chrono::seconds patience) {
    const auto deadline = Clock::now() + patience;
    while (Clock::now() < deadline) {
        const Answer<xcb_generic_event_t> event(xcb_poll_for_event(m_connection.get()));
        const auto now = Clock::now();
        if (!event) {
            pollfd readable{xcb_get_file_descriptor(m_connection.get()), POLLIN, 0};
            poll(&readable, 1, 100);
            continue;
        }
        const std::uint8_t type = event->response_type & 0x7F;
        if (type == XCB_CREATE_NOTIFY) {
            xcb_create_notify_event_t created;
            std::memcpy(&created, event.get(), sizeof created);
            reportDrawing(created.window);
        } else if (type == m_drawnEvent) {
            // Behind the event's type, level and sequence number.
            xcb_drawable_t drawn = 0;
            std::memcpy(&drawn, reinterpret_cast<const std::uint8_t*>(event.get()) + 4, sizeof drawn);
            if (ownerOf(drawn) == program)
                return now;
        }
    }
    return std::nullopt;
}

} // namespace quorvi::bench
