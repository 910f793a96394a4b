#include "helper/MouseControls.h"

#include <utility>

namespace quorvi {

MouseControls::MouseControls(
    const EventBus& bus, AllMice& mice, Clients& clients, Announcements& announcements)
    : m_mice(mice), m_clients(clients), m_announcements(announcements),
      m_object(HelperObject::offer(bus, *this)) {
    m_announcements.speakBy(m_object.get());
}

MouseControls::~MouseControls() {
    m_announcements.speakBy(nullptr);
}

void MouseControls::listMice(std::function<void(std::vector<MouseEntry>)> answer) {
    m_mice.real().list(std::move(answer));
}

MouseResult MouseControls::useMouse(const std::string& mouse, bool inUse) {
    return m_mice.real().use(mouse, inUse);
}

MouseResult MouseControls::setDpi(const std::string& mouse, std::uint16_t dpi) {
    return m_mice.real().setDpi(mouse, dpi);
}

MouseResult MouseControls::setCodes(const std::string& mouse, std::span<const std::uint16_t> codes) {
    return m_mice.real().setCodes(mouse, codes);
}

MouseResult MouseControls::beginSetUp(const std::string& mouse, const ProcessSerialNumber& caller) {
    if (m_clients.setter() && m_clients.setter() != caller)
        return MouseResult::busy;
    const auto result = m_mice.real().setUp().begin(mouse);
    if (result == MouseResult::done)
        m_clients.setSetter(caller);
    return result;
}

MouseResult MouseControls::watchKey(std::uint16_t code, const ProcessSerialNumber& caller) {
    return m_clients.setter() == caller ? m_mice.real().setUp().watchKey(code) : MouseResult::notInUse;
}

void MouseControls::endSetUp(const ProcessSerialNumber& caller) {
    if (m_clients.setter() != caller)
        return;
    m_clients.setSetter({});
    m_mice.real().setUp().end();
}

} // namespace quorvi
