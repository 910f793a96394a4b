// The helper's optional connection to the system bus.
#pragma once

#include <functional>

#include "events/EventLoop.h"
#include "events/ReturningSocket.h"
#include "events/SdBus.h"

namespace quorvi {

/// Connects when the bus starts, and reconnects when it returns. This needs no wake-ups if the bus has a
/// socket in the file system, as the system bus always has; otherwise gives up.
class SystemBus final : EventSource {
  public:
    /// Connects without blocking: messages sent before the bus has answered are queued. `changed` is called
    /// later, from the loop, when get() has changed. The loop must outlive the object.
    SystemBus(EventLoop& loop, std::function<void()> changed);
    ~SystemBus() override;
    SystemBus(const SystemBus&) = delete;
    SystemBus& operator=(const SystemBus&) = delete;

    /// Null without a bus. A lost one lives until `changed` has returned.
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
