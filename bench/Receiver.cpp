#include "bench/Receiver.h"

#include <stdexcept>

namespace quorvi::bench {

Receiver::Receiver(std::function<void(Clock::time_point)> received)
    : m_bus(EventBus::connect()), m_received(std::move(received)) {
    if (!m_bus || m_bus->ownName("KyvarQuorviHelper") != NameResult::owned)
        throw std::runtime_error("no bus, or the helper's name is taken");
    m_bus->installHandler(
        kEventClassQuorvi, kEventCommand, [this](const Event& event, const ProcessSerialNumber&, Event&) {
            const auto now = Clock::now();
            FourCharCode message = 0;
            if (event.getMagnitude(keyDirectObject, message) == noErr && message == kMessageSettingsSaved)
                m_received(now);
            return noErr;
        });
    m_thread = std::thread([this] {
        while (!m_stop && m_bus->isConnected())
            m_bus->wait(std::chrono::milliseconds(20));
    });
}

Receiver::~Receiver() {
    m_stop = true;
    m_thread.join();
}

} // namespace quorvi::bench
