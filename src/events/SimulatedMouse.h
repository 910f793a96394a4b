// The simulated mouse on the bus: the helper's object, and its clients' calls.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include <linux/input.h>

#include "events/EventBus.h"

namespace quorvi {

/// The implementation behind the bus object.
class SimulatedMouseDevice {
  public:
    virtual ~SimulatedMouseDevice() = default;

    virtual void attach() = 0; ///< plugs it in; does nothing if it already is
    virtual void detach() = 0; ///< unplugs it; does nothing if it is not plugged in
    [[nodiscard]] virtual bool attached() const = 0;
    [[nodiscard]] virtual bool recording() const = 0; ///< the panel is recording a macro
    /// The configuration record that was last written to the mouse; empty if none was.
    [[nodiscard]] virtual std::span<const std::uint8_t> record() const = 0;

    // Inputs are 1 to 9; 8 and 9 are a notch of the wheel and have no release. Only while it is plugged in.
    virtual void press(std::uint8_t input) = 0;
    virtual void release(std::uint8_t input) = 0;
    virtual void move(std::int32_t x, std::int32_t y) = 0; ///< counts of its sensor
    /// The running profile or stage, from 1; 0 without a record.
    [[nodiscard]] virtual std::uint32_t profile() const = 0;
    [[nodiscard]] virtual std::uint32_t stage() const = 0;
};

/// Offers the device on the bus while it lives. Bus and device must outlive it.
class SimulatedMouseObject {
  public:
    /// Returns null if the bus is gone or already has such an object.
    [[nodiscard]] static std::unique_ptr<SimulatedMouseObject> offer(
        const EventBus& bus, SimulatedMouseDevice& device);
    ~SimulatedMouseObject();
    SimulatedMouseObject(const SimulatedMouseObject&) = delete;
    SimulatedMouseObject& operator=(const SimulatedMouseObject&) = delete;

    /// Signals the mouse's output to all listeners.
    void tellEmitted(std::span<const input_event> frame) const;
    /// Signals that the mouse's profile or stage has changed.
    void tellRunning() const;

  private:
    SimulatedMouseObject() = default;
    struct Registration;
    std::unique_ptr<Registration> m_registration;
};

// Calls of another process's simulated mouse. They wait at most a second. procNotFound: no such process;
// errAEEventNotHandled: it has no simulated mouse; errAETimeout; connectionInvalid. Results stay unchanged on
// failure.

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

// Also paramErr for an input that is not 1 to 9, and errAEEventFailed if the mouse is not plugged in.
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

/// Listens to the output of another process's simulated mouse while it lives. The bus must outlive it.
class SimulatedMouseListener {
  public:
    /// Receives each frame with its SYN_REPORT, from EventBus::process(). Must not call the bus.
    using Function = std::function<void(std::span<const EmittedEvent>)>;

    /// Returns null if the bus is gone or refuses. Output is received from the return of this call on.
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
