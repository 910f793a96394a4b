// The engine's output.
#pragma once

#include <cstdint>
#include <span>

#include <linux/input.h>

namespace quorvi::engine {

/// The engine's two output devices; Devices.h lists their capabilities.
enum class Device : std::uint8_t { Pointer, Keyboard };

/// The profile, stage and sensitivity in use.
struct Running {
    std::uint8_t profile = 0; ///< slot of the record, 1 to 5; 0 as long as there is no record
    std::uint8_t stage = 0;   ///< 1 to 5; 0 if the profile has none
    std::uint16_t dpiX = 0;   ///< 100 to 6475; 0 as long as there is no record
    std::uint16_t dpiY = 0;

    bool operator==(const Running&) const = default;
};

/// Called only from within the engine's functions. Must not call the engine.
class Output {
  public:
    virtual ~Output() = default;

    /// One frame of the device, its SYN_REPORT at the end: at most 64 events, in one piece as write() takes
    /// them. All have the time of the call to the engine. A code changes at most once in a frame.
    virtual void write(Device device, std::span<const input_event> frame) = 0;

    /// Called when the profile, the stage or its sensitivity has changed, even just while a button is held,
    /// and after the frames of the same call.
    virtual void runs(const Running& running) = 0;
};

} // namespace quorvi::engine
