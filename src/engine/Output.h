// What comes out of the engine.
#pragma once

#include <cstdint>
#include <span>

#include <linux/input.h>

namespace quorvi::engine {

/// The two devices that the engine plays; Devices.h says what each has to offer.
enum class Device : std::uint8_t { Pointer, Keyboard };

/// What the mouse runs now.
struct Running {
    std::uint8_t profile = 0; ///< slot of the record, 1 to 5; 0 as long as there is no record
    std::uint8_t stage = 0;   ///< 1 to 5; 0 when the profile has none
    std::uint16_t dpiX = 0;   ///< 100 to 6475; 0 as long as there is no record
    std::uint16_t dpiY = 0;

    bool operator==(const Running&) const = default;
};

/// Called from within the engine's calls, never otherwise. It must not call the engine.
class Output {
  public:
    virtual ~Output() = default;

    /// One frame of the device, its SYN_REPORT at the end: at most 64 events, in one piece as write() takes
    /// them. All carry the time that the engine was called with. A code changes at most once in a frame.
    virtual void write(Device device, std::span<const input_event> frame) = 0;

    /// The profile, the stage or its sensitivity has changed, also for as long as a button is held. Comes
    /// behind the frames of the same call.
    virtual void runs(const Running& running) = 0;
};

} // namespace quorvi::engine
