#include "helper/AllMice.h"

#include <algorithm>
#include <utility>

namespace quorvi {

AllMice::AllMice(EventLoop& loop, std::filesystem::path chosen, RealMiceListener& listener)
    : m_layout(loop), m_real(loop, std::move(chosen), listener) {
    m_layout.onKeys([this](const engine::LetterKeys& keys) {
        for (auto* backend : m_backends)
            backend->setLetterKeys(keys);
    });
    loop.watch(m_simulated.timerFd(), [this] { m_simulated.wake(); });
}

void AllMice::setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration) {
    for (auto* backend : m_backends)
        backend->setRecord(record, acceleration);
}

void AllMice::setMacrosAreQuiet(bool quiet) {
    m_macrosAreQuiet = quiet;
    for (auto* backend : m_backends)
        backend->setMacrosAreQuiet(quiet);
}

DeviceList AllMice::deviceList() const {
    const auto devices = isDemonstration() ? m_simulated.devices() : m_real.devices();
    DeviceList list;
    list.count = static_cast<std::uint16_t>(devices.size());
    std::ranges::copy(devices, list.device.begin());
    return list;
}

engine::Running AllMice::running() const {
    return isDemonstration() ? m_simulated.running() : m_real.running();
}

std::uint16_t AllMice::pressedInputs() const {
    return isDemonstration() ? m_simulated.pressedInputs() : m_real.pressedInputs();
}

} // namespace quorvi
