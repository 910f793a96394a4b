#include "inputd/devices/SharedKeyboard.h"

#include <limits>

namespace quorvi::inputd {

namespace {
constexpr std::size_t largestFrame = 64;
}

bool SharedKeyboard::make(std::string& reason) {
    if (!m_device)
        m_device = OutputDevice::makeKeyboard(reason);
    return m_device != nullptr;
}

void SharedKeyboard::write(std::span<const input_event> frame) {
    if (!m_device)
        return;
    std::array<input_event, largestFrame> passing;
    const auto size = filteredFrame(frame, passing, [this](const auto& event) { return passes(event); });
    if (size > 0)
        m_device->write(std::span(passing).first(size));
}

bool SharedKeyboard::passes(const input_event& event) {
    if (event.type != EV_KEY || event.code >= m_holders.size())
        return true;
    auto& holders = m_holders[event.code];
    switch (event.value) {
    case 0:
        if (holders > 0)
            --holders;
        return holders == 0;
    case 1:
        if (holders < std::numeric_limits<std::uint8_t>::max())
            ++holders;
        return holders == 1;
    default:
        return true;
    }
}

} // namespace quorvi::inputd
