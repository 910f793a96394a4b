#include "helper/Clients.h"

#include <utility>

namespace quorvi {

void Clients::addPanel(const ProcessSerialNumber& panel) {
    m_panels.insert(panel);
    m_bus.watchProcess(panel);
}

void Clients::removePanel(const ProcessSerialNumber& panel) {
    m_panels.erase(panel);
    unwatchUnlessNeeded(panel);
}

void Clients::replace(
    std::optional<ProcessSerialNumber>& client, const std::optional<ProcessSerialNumber>& another) {
    const auto before = std::exchange(client, another);
    if (before)
        unwatchUnlessNeeded(*before);
    if (client)
        m_bus.watchProcess(*client);
}

void Clients::unwatchUnlessNeeded(const ProcessSerialNumber& process) {
    if (m_panels.count(process) == 0 && m_recorder != process && m_setter != process)
        m_bus.unwatchProcess(process);
}

} // namespace quorvi
