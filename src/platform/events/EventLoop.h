// The event loop of a program that has nothing else to wait for than the bus.
#pragma once

#include "platform/events/EventBus.h"

namespace quorvi {

/// From its construction on, SIGTERM, SIGINT and SIGHUP end run() instead of the process.
class EventLoop {
  public:
    EventLoop();
    ~EventLoop();
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// Serves the bus until it goes away or such a signal comes. Sleeps all the time in between.
    void run(EventBus& bus) const;

  private:
    int m_signals = -1; ///< readable when a signal has come
};

} // namespace quorvi
