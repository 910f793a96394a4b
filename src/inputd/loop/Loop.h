// The one place where the service waits: an epoll of everything that can wake it, and one timer.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include <sys/epoll.h>

#include "engine/Engine.h"
#include "inputd/loop/Descriptor.h"

namespace quorvi::inputd {

/// Something with a file descriptor.
class Watcher {
  public:
    virtual ~Watcher() = default;
    /// The descriptor is ready: EPOLLIN and its like. May unwatch and destroy any watcher, itself included.
    virtual void ready(std::uint32_t events) = 0;
};

/// What is to be done between two waits: beside the descriptors, or before sleeping.
class LoopOwner {
  public:
    virtual ~LoopOwner() = default;
    /// Called before every wait. Returns the longest time to wait for a descriptor; nothing is for ever.
    virtual std::optional<std::chrono::microseconds> beforeWait() = 0;
    /// When the timer has to ring, in the steady clock's time; nothing turns it off.
    virtual std::optional<engine::Time> nextWake() = 0;
    /// The timer has rung.
    virtual void wake() = 0;
};

/// The steady clock, in which the kernel's events are stamped too.
[[nodiscard]] engine::Time steadyNow();

class Loop {
  public:
    Loop();
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;

    /// False when the system has no descriptor left for it.
    [[nodiscard]] bool isUsable() const { return m_epoll && m_timer && m_signals; }

    /// The watcher has to stay until unwatch().
    [[nodiscard]] bool watch(int fd, Watcher& watcher, std::uint32_t events = EPOLLIN);
    void change(int fd, Watcher& watcher, std::uint32_t events);
    void unwatch(int fd);

    /// Serves one descriptor after the other until end() is called, or SIGTERM or SIGINT comes. From the
    /// loop's construction on these do not end the process.
    void run(LoopOwner& owner);
    void end() { m_ends = true; }

  private:
    void arm(std::optional<engine::Time> when);

    Descriptor m_epoll;
    Descriptor m_timer;
    Descriptor m_signals;
    std::optional<engine::Time> m_armed;
    bool m_ends = false;
};

} // namespace quorvi::inputd
