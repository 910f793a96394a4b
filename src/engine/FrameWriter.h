// Groups events into frames.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "engine/Clock.h"
#include "engine/Output.h"

namespace quorvi::engine {

class FrameWriter {
  public:
    explicit FrameWriter(Output& output) : m_output(output) {}

    /// The time of all events from here on.
    void setTime(Time time);

    /// Adds an event to the current frame. Starts a new frame if the current one is another device's, is
    /// full, or already has the code: the first of two changes in one frame would be lost. A value beyond 32
    /// bits is clamped; only garbage has one.
    void put(Device device, std::uint16_t type, std::uint16_t code, std::int64_t value);

    /// Writes the current frame, if there is one.
    void flush();

  private:
    [[nodiscard]] bool fits(Device device, std::uint16_t type, std::uint16_t code) const;
    void append(std::uint16_t type, std::uint16_t code, std::int32_t value);

    static constexpr std::size_t kMostEvents = 64; ///< including SYN_REPORT; the size of the kernel's queue

    Output& m_output;
    decltype(input_event::input_event_sec) m_seconds = 0;
    decltype(input_event::input_event_usec) m_microseconds = 0;
    Device m_device = Device::Pointer;
    std::array<input_event, kMostEvents> m_events{};
    std::size_t m_size = 0;
};

} // namespace quorvi::engine
