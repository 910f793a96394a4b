// The simulated mouse on the bus: the object that the helper offers, and the calls that others make of it.
#pragma once

#include <memory>
#include <span>

#include "platform/events/EventBus.h"

namespace quorvi {

/// What the object on the bus does and shows.
class SimulatedMouseDevice {
  public:
    virtual ~SimulatedMouseDevice() = default;

    virtual void attach() = 0; ///< plugs it in; does no harm when it is
    virtual void detach() = 0; ///< unplugs it; does no harm when it is not plugged in
    [[nodiscard]] virtual bool attached() const = 0;
    [[nodiscard]] virtual bool recording() const = 0; ///< the panel is recording a macro
    /// The configuration record that was last written to the mouse; empty when none was.
    [[nodiscard]] virtual std::span<const std::uint8_t> record() const = 0;
};

/// Offers the device on the bus for as long as it lives. Bus and device must live longer.
class SimulatedMouseObject {
  public:
    /// A null pointer when the bus is gone or offers one already.
    [[nodiscard]] static std::unique_ptr<SimulatedMouseObject> offer(
        const EventBus& bus, SimulatedMouseDevice& device);
    ~SimulatedMouseObject();
    SimulatedMouseObject(const SimulatedMouseObject&) = delete;
    SimulatedMouseObject& operator=(const SimulatedMouseObject&) = delete;

  private:
    SimulatedMouseObject() = default;
    struct Registration;
    std::unique_ptr<Registration> m_registration;
};

// Calls of another process's simulated mouse. They wait a second at most. procNotFound: no such process;
// errAEEventNotHandled: it has no simulated mouse; errAETimeout; connectionInvalid. Results are left as they
// were on failure.

[[nodiscard]] Status attachSimulatedMouse(const EventBus& bus, const ProcessSerialNumber& helper);
[[nodiscard]] Status detachSimulatedMouse(const EventBus& bus, const ProcessSerialNumber& helper);
[[nodiscard]] Status getSimulatedMouseAttached(
    const EventBus& bus, const ProcessSerialNumber& helper, bool& attached);
[[nodiscard]] Status getSimulatedMouseRecording(
    const EventBus& bus, const ProcessSerialNumber& helper, bool& recording);
[[nodiscard]] Status getSimulatedMouseRecord(
    const EventBus& bus, const ProcessSerialNumber& helper, EventBytes& record);

} // namespace quorvi
