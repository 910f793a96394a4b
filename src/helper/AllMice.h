// The simulated mouse and this computer's mice, which the helper treats as one.
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
    /// Stores the mice in use in the file `chosen`. Macros play only while the loop runs. Loop and listener
    /// must outlive the object.
    AllMice(EventLoop& loop, std::filesystem::path chosen, RealMiceListener& listener);
    AllMice(const AllMice&) = delete;
    AllMice& operator=(const AllMice&) = delete;

    [[nodiscard]] SimulatedDevice& simulated() { return m_simulated; }
    [[nodiscard]] RealMice& real() { return m_real; }
    [[nodiscard]] const RealMice& real() const { return m_real; }

    // Sets the record of all mice.
    void setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration);
    void setMacrosAreQuiet(bool quiet);
    [[nodiscard]] bool macrosAreQuiet() const { return m_macrosAreQuiet; }
    /// From now on they type in the session's layout.
    void followLayout() { m_layout.follow(); }

    /// Whether no real mouse is in use, so that the simulated one is reported.
    [[nodiscard]] bool isDemonstration() const { return !m_real.anyInUse(); }
    // The list of the reported mice.
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
