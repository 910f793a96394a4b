// The simulated mouse: it stands in for the buttons and sensor of a real one while none is in use.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>

#include "engine/Engine.h"
#include "events/Timer.h"
#include "helper/mice/Backend.h"

namespace quorvi {

/// Its sensor has 1600 DPI.
class SimulatedDevice final : public Backend, engine::Output {
  public:
    SimulatedDevice() = default;

    /// Receives its output, one frame at a time.
    void onFrame(std::function<void(std::span<const input_event>)> function) {
        m_frame = std::move(function);
    }
    /// Called when its profile or stage has changed.
    void onRunning(std::function<void()> function) { m_running = std::move(function); }

    void setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration) override;
    void setMacrosAreQuiet(bool quiet) override;
    void setLetterKeys(const engine::LetterKeys& keys) override;
    [[nodiscard]] std::vector<DeviceEntry> devices() const override;
    [[nodiscard]] engine::Running running() const override { return m_engine.running(); }

    void setPluggedIn(bool pluggedIn) { m_isPluggedIn = pluggedIn; }
    [[nodiscard]] bool isPluggedIn() const { return m_isPluggedIn; }

    // Inputs are 1 to 9. The wheel (8 and 9) turns by a notch and has no release.
    void press(std::uint8_t input);
    void release(std::uint8_t input);
    /// Counts of the sensor.
    void move(std::int32_t x, std::int32_t y);
    void releaseAll();

    /// Bit 0 is input 1; the wheel's are never down.
    [[nodiscard]] std::uint16_t pressedInputs() const { return m_pressed; }

    /// Becomes readable when wake() must be called.
    [[nodiscard]] int timerFd() const { return m_timer.fd(); }
    void wake();

  private:
    void write(engine::Device device, std::span<const input_event> frame) override;
    void runs(const engine::Running& running) override;

    void feed(std::span<const input_event> frame);
    void setOptions();
    void setTimer();

    std::function<void(std::span<const input_event>)> m_frame;
    std::function<void()> m_running;
    engine::Options m_options;
    bool m_isPluggedIn = true; ///< until it is unplugged
    std::uint16_t m_pressed = 0;
    engine::Engine m_engine{*this};
    Timer m_timer;
};

} // namespace quorvi
