// The event loop of a program without a window.
#pragma once

#include <functional>
#include <vector>

#include <poll.h>

#include "platform/events/EventBus.h"

namespace quorvi {

/// From its construction on, SIGTERM, SIGINT and SIGHUP end run() instead of the process.
class EventLoop {
  public:
    EventLoop();
    ~EventLoop();
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// Calls the function whenever the file descriptor is readable, for as long as run() runs. It has to read
    /// it, or to close it after the last run(). A negative one is never readable.
    void watch(int fd, std::function<void()> readable);

    /// Serves the bus until it goes away or such a signal comes. Sleeps all the time in between.
    void run(EventBus& bus);

  private:
    void callReadable();

    int m_signals = -1;                            ///< readable when a signal has come
    std::vector<pollfd> m_polled{2};               ///< the bus, the signals, and what is watched
    std::vector<std::function<void()>> m_readable; ///< for what is watched, in that order
};

} // namespace quorvi
