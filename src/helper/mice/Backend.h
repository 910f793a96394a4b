// The interface of everything that follows the settings: the simulated mouse, or mice in use.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/Options.h"
#include "engine/Output.h"
#include "events/DeviceList.h"
#include "model/Limits.h"

namespace quorvi {

using Acceleration = std::array<float, limits::profiles>;

class Backend {
  public:
    virtual ~Backend() = default;

    /// The record of 13232 bytes and the acceleration of its profiles. A record that the engine refuses is
    /// ignored.
    virtual void setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration) = 0;
    /// Keeps macros from starting while the panel records one.
    virtual void setMacrosAreQuiet(bool quiet) = 0;
    /// The keys that type letters in the session's layout.
    virtual void setLetterKeys(const engine::LetterKeys& keys) = 0;

    /// For the device list: the plugged-in mice that follow the settings.
    [[nodiscard]] virtual std::vector<DeviceEntry> devices() const = 0;
    /// The running profile and stage; 0 without a record.
    [[nodiscard]] virtual engine::Running running() const = 0;
};

} // namespace quorvi
