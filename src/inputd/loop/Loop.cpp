#include "inputd/loop/Loop.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>

#include <sys/signalfd.h>
#include <sys/timerfd.h>

namespace quorvi::inputd {

namespace {

constexpr std::int64_t kMicrosecondsPerSecond = 1'000'000;

int signalDescriptor() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

void add(int epoll, int fd, void* mark) {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.ptr = mark;
    epoll_ctl(epoll, EPOLL_CTL_ADD, fd, &event);
}

/// For epoll_wait: rounded up, since a wait that is too short would spin.
int milliseconds(std::optional<std::chrono::microseconds> time) {
    if (!time)
        return -1;
    const auto longest = std::chrono::milliseconds(60'000); // an extra wake-up does no harm
    return static_cast<int>(
        std::clamp(std::chrono::ceil<std::chrono::milliseconds>(*time), std::chrono::milliseconds(0), longest)
            .count());
}

} // namespace

engine::Time steadyNow() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::chrono::duration_cast<engine::Time>(
        std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec));
}

Loop::Loop()
    : m_epoll(epoll_create1(EPOLL_CLOEXEC)),
      m_timer(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)), m_signals(signalDescriptor()) {
    add(m_epoll.get(), m_timer.get(), &m_timer);
    add(m_epoll.get(), m_signals.get(), &m_signals);
}

bool Loop::watch(int fd, Watcher& watcher, std::uint32_t events) {
    epoll_event event{};
    event.events = events;
    event.data.ptr = &watcher;
    return epoll_ctl(m_epoll.get(), EPOLL_CTL_ADD, fd, &event) == 0;
}

void Loop::change(int fd, Watcher& watcher, std::uint32_t events) {
    epoll_event event{};
    event.events = events;
    event.data.ptr = &watcher;
    epoll_ctl(m_epoll.get(), EPOLL_CTL_MOD, fd, &event);
}

void Loop::unwatch(int fd) {
    epoll_ctl(m_epoll.get(), EPOLL_CTL_DEL, fd, nullptr);
}

void Loop::run(LoopOwner& owner) {
    while (!m_ends) {
        const auto longest = owner.beforeWait();
        arm(owner.nextWake());
        epoll_event event{};
        // One at a time: a served watcher may remove another, and none has to wait long.
        const int count = epoll_wait(m_epoll.get(), &event, 1, milliseconds(longest));
        if (count <= 0)
            continue;
        if (event.data.ptr == &m_signals)
            return;
        if (event.data.ptr == &m_timer) {
            std::uint64_t rings = 0;
            if (read(m_timer.get(), &rings, sizeof rings) == sizeof rings) {
                m_armed.reset();
                owner.wake();
            }
            continue;
        }
        static_cast<Watcher*>(event.data.ptr)->ready(event.events);
    }
}

void Loop::arm(std::optional<engine::Time> when) {
    if (when == m_armed)
        return;
    itimerspec time{};
    if (when) {
        // Zero would turn the timer off.
        const auto count = std::max<std::int64_t>(when->count(), 1);
        time.it_value.tv_sec = count / kMicrosecondsPerSecond;
        time.it_value.tv_nsec = count % kMicrosecondsPerSecond * 1000;
    }
    timerfd_settime(m_timer.get(), TFD_TIMER_ABSTIME, &time, nullptr);
    m_armed = when;
}

} // namespace quorvi::inputd
