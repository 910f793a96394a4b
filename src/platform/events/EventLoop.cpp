#include "platform/events/EventLoop.h"

#include <csignal>

#include <poll.h>
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

void EventLoop::run(EventBus& bus) const {
    bus.process();
    while (bus.isConnected()) {
        pollfd watched[] = {{bus.fd(), bus.events(), 0}, {m_signals, POLLIN, 0}};
        const auto forEver = std::chrono::milliseconds(-1);
        poll(watched, 2, bus.hasPending() ? 0 : bus.connection().pollTimeout(forEver));
        if (watched[1].revents != 0)
            return;
        bus.process();
    }
}

} // namespace quorvi
