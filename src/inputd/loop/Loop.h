// The service's only waiting point: an epoll of all descriptors, and one timer.
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

/// The work between two waits besides the descriptors.
class LoopOwner {
  public:
    virtual ~LoopOwner() = default;
    /// Called before every wait. Returns the longest time to wait for a descriptor; std::nullopt for no
    /// limit.
    virtual std::optional<std::chrono::microseconds> beforeWait() = 0;
    /// When the timer expires, in steady-clock time; std::nullopt turns it off.
    virtual std::optional<engine::Time> nextWake() = 0;
    /// The timer has expired.
    virtual void wake() = 0;
};

/// The steady clock, also used for the kernel's event time stamps.
[[nodiscard]] engine::Time steadyNow();

class Loop {
  public:
    Loop();
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;

    /// False if the system has no descriptors left.
    [[nodiscard]] bool isUsable() const { return m_epoll && m_timer && m_signals; }

    /// The watcher must live until unwatch().
    [[nodiscard]] bool watch(int fd, Watcher& watcher, std::uint32_t events = EPOLLIN);
    void change(int fd, Watcher& watcher, std::uint32_t events);
    void unwatch(int fd);

    /// Serves one descriptor after the other until end() is called, or SIGTERM or SIGINT arrives. Once the
    /// loop is constructed, these signals do not end the process.
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
