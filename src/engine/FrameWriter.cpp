#include "engine/FrameWriter.h"

#include <algorithm>
#include <limits>
#include <span>

#include "engine/Event.h"

namespace quorvi::engine {

void FrameWriter::setTime(Time time) {
    constexpr Time::rep perSecond = 1'000'000;
    m_seconds = static_cast<decltype(m_seconds)>(time.count() / perSecond);
    m_microseconds = static_cast<decltype(m_microseconds)>(time.count() % perSecond);
}

void FrameWriter::put(Device device, std::uint16_t type, std::uint16_t code, std::int64_t value) {
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    if (!fits(device, type, code))
        flush();
    m_device = device;
    append(type, code, static_cast<std::int32_t>(std::clamp(value, -most, most)));
}

void FrameWriter::flush() {
    if (m_size == 0)
        return;
    append(EV_SYN, SYN_REPORT, 0);
    const std::span frame(m_events.data(), m_size);
    m_size = 0;
    m_output.write(m_device, frame);
}

bool FrameWriter::fits(Device device, std::uint16_t type, std::uint16_t code) const {
    const std::span frame(m_events.data(), m_size);
    return m_size == 0 || (device == m_device && m_size + 1 < m_events.size() &&
                              std::ranges::none_of(frame, [=](const input_event& event) {
                                  return event.type == type && event.code == code;
                              }));
}

void FrameWriter::append(std::uint16_t type, std::uint16_t code, std::int32_t value) {
    input_event& event = m_events[m_size++];
    event = eventOf(type, code, value);
    event.input_event_sec = m_seconds;
    event.input_event_usec = m_microseconds;
}

} // namespace quorvi::engine
