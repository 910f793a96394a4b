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

/// A connection that the loop serves. What it says is asked before each wait, since it may change with every
/// call of anything.
class EventSource {
  public:
    virtual ~EventSource() = default;

    /// What to wait for; a negative one is never ready.
    [[nodiscard]] virtual int fd() const = 0;
    /// As for poll(2).
    [[nodiscard]] virtual short events() const { return POLLIN; }
    /// How long process() may be left uncalled: 0 for not at all, a negative time for ever.
    [[nodiscard]] virtual std::chrono::milliseconds timeout() const { return std::chrono::milliseconds(-1); }
    /// Does what is there, without waiting, and not for long. Called when there may be something.
    virtual void process() = 0;
};

/// From its construction on, SIGTERM, SIGINT and SIGHUP end run() instead of the process.
class EventLoop {
  public:
    EventLoop();
    ~EventLoop();
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// Calls the function whenever the file descriptor is readable or its other end is gone, for as long as
    /// run() runs. Before the last run() it is closed only after unwatch(). A negative one is never readable.
    /// Both may be called from anywhere on the loop's thread, the function included.
    void watch(int fd, std::function<void()> readable);
    void unwatch(int fd);

    /// Serves the source, which must live until it is removed. Both may be called from anywhere on the loop's
    /// thread, its own process() included.
    void add(EventSource& source);
    void remove(EventSource& source);

    /// Serves the bus until it goes away or such a signal comes. Sleeps all the time in between.
    void run(EventBus& bus);

  private:
    [[nodiscard]] std::chrono::milliseconds prepareSources();
    void callReadable();
    void processSources();

    using Function = std::function<void()>;

    int m_signals = -1; ///< readable when a signal has come
    std::map<int, std::shared_ptr<const Function>> m_watched;
    std::vector<EventSource*> m_sources; ///< null when it has been removed meanwhile
    std::vector<pollfd> m_polled;        ///< the bus, the signals, what is watched, the sources
    std::size_t m_firstSource = 0;       ///< of these
};

} // namespace quorvi
