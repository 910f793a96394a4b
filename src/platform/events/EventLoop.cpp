#include "platform/events/EventLoop.h"

#include <csignal>
#include <utility>

#include <sys/signalfd.h>
#include <unistd.h>

#include "platform/events/EventBusPrivate.h"

namespace quorvi {

EventLoop::EventLoop() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&signals, signal);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    m_signals = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

EventLoop::~EventLoop() {
    if (m_signals >= 0)
        close(m_signals);
}

void EventLoop::watch(int fd, std::function<void()> readable) {
    m_polled.push_back({fd, POLLIN, 0});
    m_readable.push_back(std::move(readable));
}

void EventLoop::run(EventBus& bus) {
    bus.process();
    while (bus.isConnected()) {
        m_polled[0] = {bus.fd(), bus.events(), 0};
        m_polled[1] = {m_signals, POLLIN, 0};
        const auto forEver = std::chrono::milliseconds(-1);
        poll(m_polled.data(), m_polled.size(), bus.hasPending() ? 0 : bus.connection().pollTimeout(forEver));
        if (m_polled[1].revents != 0)
            return;
        callReadable();
        bus.process();
    }
}

void EventLoop::callReadable() {
    for (std::size_t i = 0; i < m_readable.size(); ++i)
        if (m_polled[i + 2].revents != 0)
            m_readable[i]();
}

} // namespace quorvi
