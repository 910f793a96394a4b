#include "engine/HeldKeys.h"

#include "engine/Devices.h"

namespace quorvi::engine {

void HeldKeys::press(std::uint16_t code) {
    Device device{};
    if (!findDeviceOfKey(code, device) || m_counts[code]++ > 0)
        return;
    ++m_down;
    m_writer.put(device, EV_KEY, code, 1);
}

void HeldKeys::release(std::uint16_t code) {
    Device device{};
    if (!findDeviceOfKey(code, device) || m_counts[code] == 0 || --m_counts[code] > 0)
        return;
    --m_down;
    m_writer.put(device, EV_KEY, code, 0);
}

void HeldKeys::releaseAll() {
    for (std::uint16_t code = 0; m_down > 0 && code < m_counts.size(); ++code) {
        if (m_counts[code] == 0)
            continue;
        m_counts[code] = 1;
        release(code);
    }
}

} // namespace quorvi::engine
