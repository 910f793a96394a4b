// The helper's connection to the bus of the system, which it does without when there is none.
#pragma once

#include <memory>

#include "platform/events/EventLoop.h"
#include "platform/events/SdBus.h"

namespace quorvi {

class SystemBus final : public EventSource {
  public:
    /// A null pointer when there is no such bus. Nothing is waited for: what is sent before the bus has
    /// answered waits in the connection. A bus that goes away later does not come back.
    [[nodiscard]] static std::unique_ptr<SystemBus> open();

    [[nodiscard]] sd_bus* get() const { return m_bus.get(); }

    [[nodiscard]] int fd() const override;
    [[nodiscard]] short events() const override;
    [[nodiscard]] std::chrono::milliseconds timeout() const override;
    void process() override;

  private:
    explicit SystemBus(events::BusPtr bus) : m_bus(std::move(bus)) {}

    events::BusPtr m_bus;
};

} // namespace quorvi
