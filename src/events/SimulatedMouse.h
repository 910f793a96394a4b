// The simulated mouse on the bus: the object that the helper offers, and the calls that others make of it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include <linux/input.h>

#include "events/EventBus.h"

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

    // Inputs are 1 to 9; 8 and 9 are a notch of the wheel and have no release. Only while it is plugged in.
    virtual void press(std::uint8_t input) = 0;
    virtual void release(std::uint8_t input) = 0;
    virtual void move(std::int32_t x, std::int32_t y) = 0; ///< counts of its sensor
    /// What it runs now, from 1; 0 when it has no record.
    [[nodiscard]] virtual std::uint32_t profile() const = 0;
    [[nodiscard]] virtual std::uint32_t stage() const = 0;
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

    /// Tells whoever listens what the mouse sends.
    void tellEmitted(std::span<const input_event> frame) const;
    /// Tells whoever listens that the mouse's profile or stage is another one.
    void tellRunning() const;

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
[[nodiscard]] Status getSimulatedMouseProfile(
    const EventBus& bus, const ProcessSerialNumber& helper, std::uint32_t& profile);
[[nodiscard]] Status getSimulatedMouseStage(
    const EventBus& bus, const ProcessSerialNumber& helper, std::uint32_t& stage);

// And paramErr for an input that is not 1 to 9; errAEEventFailed when the mouse is not plugged in.
[[nodiscard]] Status pressSimulatedMouse(
    const EventBus& bus, const ProcessSerialNumber& helper, std::uint8_t input);
[[nodiscard]] Status releaseSimulatedMouse(
    const EventBus& bus, const ProcessSerialNumber& helper, std::uint8_t input);
[[nodiscard]] Status moveSimulatedMouse(
    const EventBus& bus, const ProcessSerialNumber& helper, std::int32_t x, std::int32_t y);

/// One event that the simulated mouse sent: microseconds of the steady clock, and type, code and value as in
/// linux/input-event-codes.h.
struct EmittedEvent {
    std::uint64_t time = 0;
    std::uint16_t type = 0;
    std::uint16_t code = 0;
    std::int32_t value = 0;

    bool operator==(const EmittedEvent&) const = default;
};

/// Hears what the simulated mouse of another process sends, for as long as it lives. The bus must live
/// longer.
class SimulatedMouseListener {
  public:
    /// Gets each frame from EventBus::process(), with its SYN_REPORT. It must not call the bus.
    using Function = std::function<void(std::span<const EmittedEvent>)>;

    /// A null pointer when the bus is gone or refuses. What is sent after this has returned is heard.
    [[nodiscard]] static std::unique_ptr<SimulatedMouseListener> listen(
        const EventBus& bus, const ProcessSerialNumber& helper, Function function);
    ~SimulatedMouseListener();
    SimulatedMouseListener(const SimulatedMouseListener&) = delete;
    SimulatedMouseListener& operator=(const SimulatedMouseListener&) = delete;

  private:
    SimulatedMouseListener() = default;
    struct Registration;
    std::unique_ptr<Registration> m_registration;
};

} // namespace quorvi
