// The simulated mouse and the mice of this computer, of which the helper speaks as of one.
#pragma once

#include <array>
#include <filesystem>
#include <span>

#include "events/DeviceList.h"
#include "events/EventLoop.h"
#include "helper/SessionLayout.h"
#include "helper/SimulatedDevice.h"
#include "helper/mice/RealMice.h"

namespace quorvi {

class AllMice {
  public:
    /// Which mice are in use is kept in that file. The loop has to run for the mouse's macros to go on. Loop
    /// and listener must live longer.
    AllMice(EventLoop& loop, std::filesystem::path chosen, RealMiceListener& listener);
    AllMice(const AllMice&) = delete;
    AllMice& operator=(const AllMice&) = delete;

    [[nodiscard]] SimulatedDevice& simulated() { return m_simulated; }
    [[nodiscard]] RealMice& real() { return m_real; }
    [[nodiscard]] const RealMice& real() const { return m_real; }

    // To all of them.
    void setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration);
    void setMacrosAreQuiet(bool quiet);
    [[nodiscard]] bool macrosAreQuiet() const { return m_macrosAreQuiet; }
    /// From now on they type by the session's layout.
    void followLayout() { m_layout.follow(); }

    /// No mouse of this computer is in use: the simulated one is spoken of.
    [[nodiscard]] bool isDemonstration() const { return !m_real.anyInUse(); }
    // Of those that are spoken of.
    [[nodiscard]] DeviceList deviceList() const;
    [[nodiscard]] engine::Running running() const;
    /// Bit 0 is input 1.
    [[nodiscard]] std::uint16_t pressedInputs() const;

  private:
    SessionLayout m_layout;
    SimulatedDevice m_simulated;
    RealMice m_real;
    std::array<Backend*, 2> m_backends{&m_simulated, &m_real};
    bool m_macrosAreQuiet = false;
};

} // namespace quorvi
