#include "support/WindowPing.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string_view>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include "support/ProcessFigures.h"

namespace quorvi::test {

namespace {

constexpr std::chrono::milliseconds kBetweenPings{5};

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

/// A connection that receives programs' messages to the root window.
class PingConnection {
  public:
    PingConnection() : m_connection(xcb_connect(nullptr, nullptr), xcb_disconnect) {
        if (xcb_connection_has_error(m_connection.get()))
            throw std::runtime_error("there is no display to ping on");
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
        m_protocols = atom("WM_PROTOCOLS");
        m_ping = atom("_NET_WM_PING");
        // Programs answer to the one or the other; Qt to the latter.
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection.get(), m_root, XCB_CW_EVENT_MASK, &events);
        xcb_flush(m_connection.get());
    }

    void ping(std::uint32_t window, std::uint32_t number) const {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = m_protocols;
        message.data.data32[0] = m_ping;
        message.data.data32[1] = number;
        message.data.data32[2] = window;
        xcb_send_event(
            m_connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
        xcb_flush(m_connection.get());
    }

    /// The window's answer to the ping of that number has come. Waits for a moment at most.
    [[nodiscard]] bool hasAnswer(std::uint32_t window, std::uint32_t number) const {
        pollfd watched{xcb_get_file_descriptor(m_connection.get()), POLLIN, 0};
        poll(&watched, 1, 10);
        constexpr int sentEvent = 0x80;
        while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get()), std::free}) {
            if ((event->response_type & ~sentEvent) != XCB_CLIENT_MESSAGE)
                continue;
            const auto& data = reinterpret_cast<const xcb_client_message_event_t&>(*event).data.data32;
            if (data[0] == m_ping && data[1] == number && data[2] == window)
                return true;
        }
        return false;
    }

    /// The process that shows the window, as it says itself; 0 if it does not.
    [[nodiscard]] pid_t programOf(std::uint32_t window) const {
        const auto cookie =
            xcb_get_property(m_connection.get(), 0, window, atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 0, 1);
        const Owned<xcb_get_property_reply_t> reply{
            xcb_get_property_reply(m_connection.get(), cookie, nullptr), std::free};
        if (!reply || xcb_get_property_value_length(reply.get()) != sizeof(std::uint32_t))
            return 0;
        return static_cast<pid_t>(*static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())));
    }
    /// The display's server; 0 on another machine.
    [[nodiscard]] pid_t server() const {
        ucred peer{};
        socklen_t size = sizeof peer;
        const int socket = xcb_get_file_descriptor(m_connection.get());
        return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 ? peer.pid : 0;
    }

  private:
    [[nodiscard]] xcb_atom_t atom(std::string_view name) const {
        const auto cookie =
            xcb_intern_atom(m_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
        const Owned<xcb_intern_atom_reply_t> reply{
            xcb_intern_atom_reply(m_connection.get(), cookie, nullptr), std::free};
        return reply ? reply->atom : 0;
    }

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_connection;
    std::uint32_t m_root = 0;
    xcb_atom_t m_protocols = 0;
    xcb_atom_t m_ping = 0;
};

} // namespace

WindowPing::WindowPing(const std::string& window)
    : m_thread([this, number = static_cast<std::uint32_t>(std::stoul(window))] { run(number); }) {}

WindowPing::~WindowPing() {
    m_stop = true;
    m_thread.join();
}

void WindowPing::run(std::uint32_t window) {
    const PingConnection connection;
    m_threads = {connection.programOf(window), connection.server(), gettid()};
    for (std::uint32_t number = 1; !m_stop; ++number) {
        const std::int64_t start = countedUs();
        m_waitingSinceUs = start;
        connection.ping(window, number);
        while (!m_stop && !connection.hasAnswer(window, number)) {
        }
        if (m_stop)
            return;
        m_waitingSinceUs = 0;
        m_longestUs = std::max<std::int64_t>(m_longestUs, countedUs() - start);
        ++m_answers;
        std::this_thread::sleep_for(kBetweenPings);
    }
}

std::int64_t WindowPing::countedUs() const {
    std::chrono::nanoseconds time = std::chrono::steady_clock::now().time_since_epoch();
    for (const pid_t thread : m_threads)
        time -= processorWaitOf(thread);
    return std::chrono::duration_cast<std::chrono::microseconds>(time).count();
}

int WindowPing::longestDelayMs() const {
    const std::int64_t since = m_waitingSinceUs;
    const std::int64_t waiting = since == 0 ? 0 : countedUs() - since;
    return static_cast<int>(std::max<std::int64_t>(m_longestUs, waiting) / 1000);
}

} // namespace quorvi::test
