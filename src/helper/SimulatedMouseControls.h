// The bus interface to the simulated mouse.
#pragma once

#include <memory>

#include "events/SimulatedMouse.h"
#include "helper/Announcements.h"

namespace quorvi {

class SimulatedMouseControls final : SimulatedMouseDevice {
  public:
    /// Offers the mouse on the bus while it lives. All arguments must outlive it.
    SimulatedMouseControls(
        EventBus& bus, const DeviceSettings& settings, AllMice& mice, Announcements& announcements);
    ~SimulatedMouseControls() override;
    SimulatedMouseControls(const SimulatedMouseControls&) = delete;
    SimulatedMouseControls& operator=(const SimulatedMouseControls&) = delete;

  private:
    void attach() override;
    void detach() override;
    [[nodiscard]] bool attached() const override { return m_mouse.isPluggedIn(); }
    [[nodiscard]] bool recording() const override { return m_mice.macrosAreQuiet(); }
    [[nodiscard]] std::span<const std::uint8_t> record() const override { return m_settings.record(); }
    void press(std::uint8_t input) override;
    void release(std::uint8_t input) override;
    void move(std::int32_t x, std::int32_t y) override { m_mouse.move(x, y); }
    [[nodiscard]] std::uint32_t profile() const override { return m_mouse.running().profile; }
    [[nodiscard]] std::uint32_t stage() const override { return m_mouse.running().stage; }

    const DeviceSettings& m_settings;
    AllMice& m_mice;
    SimulatedDevice& m_mouse;
    Announcements& m_announcements;
    std::unique_ptr<SimulatedMouseObject> m_object; ///< null if the bus refuses it
};

} // namespace quorvi
