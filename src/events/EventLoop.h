// The event loop of a program without a window.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include <poll.h>

#include "events/EventBus.h"

namespace quorvi {

/// A connection that the loop serves. The loop queries it before each wait, since any call may change it.
class EventSource {
  public:
    virtual ~EventSource() = default;

    /// The descriptor to wait for; a negative one is never ready.
    [[nodiscard]] virtual int fd() const = 0;
    /// As for poll(2).
    [[nodiscard]] virtual short events() const { return POLLIN; }
    /// How long process() may wait: 0 for not at all, negative for no limit.
    [[nodiscard]] virtual std::chrono::milliseconds timeout() const { return std::chrono::milliseconds(-1); }
    /// Handles pending work briefly and without blocking. Called when there may be some.
    virtual void process() = 0;
};

/// From its construction on, SIGTERM, SIGINT and SIGHUP end run() instead of the process.
class EventLoop {
  public:
    EventLoop();
    ~EventLoop();
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// Calls the function whenever the file descriptor is readable or its other end is gone, while run()
    /// runs. Call unwatch() before closing the descriptor. A negative one is never readable. Both may be
    /// called anywhere on the loop's thread, even from the function.
    void watch(int fd, std::function<void()> readable);
    void unwatch(int fd);

    /// Serves the source, which must live until it is removed. Both may be called anywhere on the loop's
    /// thread, even from its process().
    void add(EventSource& source);
    void remove(EventSource& source);

    /// Serves the bus until it goes away or such a signal arrives. Sleeps when idle.
    void run(EventBus& bus);

  private:
    [[nodiscard]] std::chrono::milliseconds prepareSources();
    void callReadable();
    void processSources();

    using Function = std::function<void()>;

    int m_signals = -1; ///< readable when a signal has arrived
    std::map<int, std::shared_ptr<const Function>> m_watched;
    std::vector<EventSource*> m_sources; ///< null if removed in the meantime
    std::vector<pollfd> m_polled;        ///< the bus, the signals, what is watched, the sources
    std::size_t m_firstSource = 0;       ///< index in m_polled
};

} // namespace quorvi
