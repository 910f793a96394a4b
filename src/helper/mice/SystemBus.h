// The helper's connection to the bus of the system, which it does without while there is none.
#pragma once

#include <functional>

#include "events/EventLoop.h"
#include "events/ReturningSocket.h"
#include "events/SdBus.h"

namespace quorvi {

/// A bus that goes away is connected to again when it is back, and one that is not there yet when it comes.
/// Nothing wakes up for that where the bus has a socket in the file system, as the system's always has;
/// another one is given up.
class SystemBus final : EventSource {
  public:
    /// Connects. Nothing is waited for: what is sent before the bus has answered waits in the connection. The
    /// function is called later, from the loop, when get() is another one. The loop must live longer.
    SystemBus(EventLoop& loop, std::function<void()> changed);
    ~SystemBus() override;
    SystemBus(const SystemBus&) = delete;
    SystemBus& operator=(const SystemBus&) = delete;

    /// Null while there is no such bus. One that has gone lives until the function has returned.
    [[nodiscard]] sd_bus* get() const { return m_bus.get(); }

  private:
    [[nodiscard]] int fd() const override;
    [[nodiscard]] short events() const override;
    [[nodiscard]] std::chrono::milliseconds timeout() const override;
    void process() override;
    [[nodiscard]] bool open();
    void lose();

    EventLoop& m_loop;
    std::function<void()> m_changed;
    events::BusPtr m_bus;
    Timer::Clock::time_point m_openedAt;
    ReturningSocket m_return;
};

} // namespace quorvi
