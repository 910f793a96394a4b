#include "helper/SimulatedDevice.h"

#include <utility>

#include "engine/Event.h"

namespace quorvi {

namespace {

using engine::eventOf;

constexpr std::uint8_t kWheelAway = 8;
constexpr std::int32_t kPartsOfNotch = 120; // REL_WHEEL_HI_RES, linux/input-event-codes.h

/// The product id that pid.codes reserves for tests and prototypes, with its vendor id.
constexpr DeviceEntry kSimulatedMouse{
    .vendorID = 0x1209,
    .productID = 0x0001,
    .releaseNum = 0x0100,
    .interfaceNum = 0,
    .busPower = 100,
    .locationID = 0x00100000,
    .deviceIndex = 0,
    .reserved2 = 0,
    .reserved3 = 0,
};

std::uint16_t bitOf(std::uint8_t input) {
    return static_cast<std::uint16_t>(1U << (input - 1U));
}

engine::Time now() {
    return std::chrono::duration_cast<engine::Time>(Timer::Clock::now().time_since_epoch());
}

} // namespace

void SimulatedDevice::setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration) {
    m_options.acceleration = acceleration;
    setOptions();
    (void)m_engine.setRecord(record, now());
    setTimer();
}

void SimulatedDevice::setMacrosAreQuiet(bool quiet) {
    if (std::exchange(m_options.macrosAreQuiet, quiet) != quiet)
        setOptions();
}

void SimulatedDevice::setLetterKeys(const engine::LetterKeys& keys) {
    m_options.letterKeys = keys;
    setOptions();
}

std::vector<DeviceEntry> SimulatedDevice::devices() const {
    return m_isPluggedIn ? std::vector{kSimulatedMouse} : std::vector<DeviceEntry>();
}

void SimulatedDevice::press(std::uint8_t input) {
    if (input <= engine::buttonInputs) {
        m_pressed = static_cast<std::uint16_t>(m_pressed | bitOf(input));
        return feed(std::array{eventOf(EV_KEY, m_options.buttonCodes[input - 1U], 1)});
    }
    const std::int32_t notch = input == kWheelAway ? 1 : -1;
    feed(std::array{
        eventOf(EV_REL, REL_WHEEL, notch), eventOf(EV_REL, REL_WHEEL_HI_RES, notch * kPartsOfNotch)});
}

void SimulatedDevice::release(std::uint8_t input) {
    if (input > engine::buttonInputs)
        return;
    m_pressed = static_cast<std::uint16_t>(m_pressed & ~bitOf(input));
    feed(std::array{eventOf(EV_KEY, m_options.buttonCodes[input - 1U], 0)});
}

void SimulatedDevice::move(std::int32_t x, std::int32_t y) {
    feed(std::array{eventOf(EV_REL, REL_X, x), eventOf(EV_REL, REL_Y, y)});
}

void SimulatedDevice::releaseAll() {
    m_pressed = 0;
    m_engine.releaseAll(now());
    setTimer();
}

void SimulatedDevice::wake() {
    m_engine.wake(now());
    setTimer();
}

void SimulatedDevice::write(engine::Device, std::span<const input_event> frame) {
    if (m_frame)
        m_frame(frame);
}

void SimulatedDevice::runs(const engine::Running&) {
    if (m_running)
        m_running();
}

void SimulatedDevice::feed(std::span<const input_event> frame) {
    m_engine.input(frame, now());
    setTimer();
}

void SimulatedDevice::setOptions() {
    m_engine.setOptions(m_options, now());
    setTimer();
}

void SimulatedDevice::setTimer() {
    const auto next = m_engine.nextWake();
    m_timer.set(next ? std::optional(Timer::Clock::time_point(*next)) : std::nullopt);
}

} // namespace quorvi
