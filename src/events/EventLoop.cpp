#include "events/EventLoop.h"

#include <algorithm>
#include <csignal>
#include <utility>

#include <sys/signalfd.h>
#include <unistd.h>

#include "events/EventBusPrivate.h"

namespace quorvi {

using std::chrono::milliseconds;

namespace {

constexpr milliseconds kForEver{-1};
constexpr std::size_t kFirstWatched = 2; // after the bus and the signals

/// The shorter of two times; negative means no limit.
milliseconds shorter(milliseconds a, milliseconds b) {
    if (a < milliseconds::zero())
        return b;
    return b < milliseconds::zero() ? a : std::min(a, b);
}

} // namespace

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
    m_watched[fd] = std::make_shared<const Function>(std::move(readable));
}

void EventLoop::unwatch(int fd) {
    m_watched.erase(fd);
}

void EventLoop::add(EventSource& source) {
    m_sources.push_back(&source);
}

/// Keeps its slot until the next round, so that indices stay valid during the present one.
void EventLoop::remove(EventSource& source) {
    std::ranges::replace(m_sources, &source, nullptr);
}

void EventLoop::run(EventBus& bus) {
    bus.process();
    while (bus.isConnected()) {
        m_polled = {{bus.fd(), bus.events(), 0}, {m_signals, POLLIN, 0}};
        for (const auto& [fd, function] : m_watched)
            m_polled.push_back({fd, POLLIN, 0});
        m_firstSource = m_polled.size();
        const auto wanted = prepareSources();
        const int timeout = bus.hasPending() ? 0 : bus.connection().pollTimeout(wanted);
        poll(m_polled.data(), m_polled.size(), timeout);
        if (m_polled[1].revents != 0)
            return;
        callReadable();
        processSources();
        bus.process();
    }
}

milliseconds EventLoop::prepareSources() {
    std::erase(m_sources, nullptr);
    auto wanted = kForEver;
    for (const auto* source : m_sources) {
        m_polled.push_back({source->fd(), source->events(), 0});
        wanted = shorter(wanted, source->timeout());
    }
    return wanted;
}

void EventLoop::callReadable() {
    for (std::size_t i = kFirstWatched; i < m_firstSource; ++i) {
        if (m_polled[i].revents == 0)
            continue;
        const auto found = m_watched.find(m_polled[i].fd);
        if (found == m_watched.end())
            continue;                        // removed by an earlier function of this round
        const auto function = found->second; // keeps the function alive while it removes itself
        (*function)();
    }
}

/// Only sources that existed when the wait began; newer ones wait for the next round.
void EventLoop::processSources() {
    const auto first = m_firstSource;
    const auto known = m_polled.size() - first;
    for (std::size_t i = 0; i < known; ++i)
        if (m_sources[i] &&
            (m_polled[first + i].revents != 0 || m_sources[i]->timeout() == milliseconds::zero()))
            m_sources[i]->process();
}

} // namespace quorvi
