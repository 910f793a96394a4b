#include "inputd/devices/SharedKeyboard.h"

#include <array>

namespace quorvi::inputd {

namespace {
constexpr std::size_t kLargestFrame = 64;
}

bool SharedKeyboard::make(std::string& reason) {
    if (!m_device)
        m_device = OutputDevice::makeKeyboard(reason);
    return m_device != nullptr;
}

void SharedKeyboard::write(std::span<const input_event> frame) {
    if (!m_device)
        return;
    std::array<input_event, kLargestFrame> passing;
    const auto size =
        filteredFrame(frame, passing, [this](const auto& event) { return m_holders.passes(event); });
    if (size > 0)
        m_device->write(std::span(passing).first(size));
}

} // namespace quorvi::inputd
