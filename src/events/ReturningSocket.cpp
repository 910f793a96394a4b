#include "events/ReturningSocket.h"

#include <array>
#include <string_view>

#include <sys/inotify.h>
#include <unistd.h>

namespace quorvi {

namespace {

constexpr int kTriesForOne = 20;
constexpr auto kBetweenTries = std::chrono::milliseconds(100);

} // namespace

ReturningSocket::ReturningSocket(EventLoop& loop, std::filesystem::path socket, Connect connect)
    : m_loop(loop), m_socket(std::move(socket)), m_connect(std::move(connect)) {
    if (m_timer.fd() >= 0)
        m_loop.watch(m_timer.fd(), [this] { tryAgain(); });
}

ReturningSocket::~ReturningSocket() {
    stop();
    m_loop.unwatch(m_timer.fd());
}

void ReturningSocket::wait(std::chrono::milliseconds pause) {
    if (m_inotify >= 0)
        return;
    m_inotify = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    if (m_inotify < 0)
        return;
    inotify_add_watch(m_inotify, m_socket.parent_path().c_str(), IN_CREATE | IN_MOVED_TO);
    m_loop.watch(m_inotify, [this] { look(); });
    // The socket may have appeared before the watch began.
    std::error_code error;
    if (std::filesystem::exists(m_socket, error))
        tryAfter(pause);
}

void ReturningSocket::look() {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    const std::string name = m_socket.filename();
    bool made = false;
    for (ssize_t size = 0; (size = read(m_inotify, buffer.data(), buffer.size())) > 0;) {
        for (ssize_t at = 0; at < size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
            made = made || (event->len > 0 && name == event->name);
            at += static_cast<ssize_t>(sizeof *event + event->len);
        }
    }
    if (made) {
        m_triesLeft = kTriesForOne;
        tryAgain();
    }
}

void ReturningSocket::tryAgain() {
    m_timer.set(std::nullopt);
    if (m_connect())
        stop();
    else if (--m_triesLeft > 0)
        tryAfter(kBetweenTries);
}

void ReturningSocket::tryAfter(std::chrono::milliseconds pause) {
    if (m_triesLeft <= 0)
        m_triesLeft = kTriesForOne;
    m_timer.set(Timer::Clock::now() + pause);
}

void ReturningSocket::stop() {
    m_timer.set(std::nullopt);
    if (m_inotify < 0)
        return;
    m_loop.unwatch(m_inotify);
    close(m_inotify);
    m_inotify = -1;
}

} // namespace quorvi
