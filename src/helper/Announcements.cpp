#include "helper/Announcements.h"

#include <cstring>
#include <utility>

#include "events/EventBusPrivate.h"
#include "helper/display/ChangeTexts.h"

namespace quorvi {

Announcements::Announcements(EventBus& bus, DeviceSettings& settings, AllMice& mice, const Clients& clients,
    std::filesystem::path bundle)
    : m_bus(bus), m_settings(settings), m_mice(mice), m_clients(clients), m_bundle(std::move(bundle)),
      m_display(bus.connection().bus.get()) {}

void Announcements::sendDeviceList() {
    m_sentList = m_mice.deviceList();
    for (const auto& panel : m_clients.panels())
        (void)m_bus.send(panel, makeDeviceListEvent(*m_sentList));
}

void Announcements::noteRunning() {
    if (m_object)
        m_object->tellRunning();
    tellFrontReason();
    const auto now = m_mice.running();
    const auto& profiles = m_settings.profiles();
    if (const auto shown = m_changes.note(now, profiles))
        m_display.show(textOf(*shown, now, profiles, Bundle(m_bundle.native())));
}

/// Like the engine: a record with unchanged settings does not change the running profile and stage.
void Announcements::expectSaved(const SettingsRecord& before) {
    const auto now = m_settings.settings();
    if (std::memcmp(&before, &now, sizeof now) != 0)
        m_changes.expect(now.profileId, now.stage);
}

void Announcements::setFrontReason(std::string reason) {
    m_frontReason = std::move(reason);
    tellFrontReason();
}

/// It depends on the running profile too, but rarely changes with it.
void Announcements::tellFrontReason() {
    auto now = frontReason();
    if (now == m_toldFrontReason)
        return;
    m_toldFrontReason = std::move(now);
    if (m_object)
        m_object->tellFrontReason();
}

std::string Announcements::frontReason() const {
    const auto followed = m_settings.followed();
    return followed && m_mice.running().profile == *followed + 1 ? m_frontReason : std::string();
}

/// Panels re-read their settings at each list, so send it only if it has changed.
void Announcements::miceChanged() {
    const bool demonstrates = m_mice.isDemonstration();
    if (!demonstrates)
        m_mice.followLayout();
    if (m_object)
        m_object->tellMiceChanged();
    const bool has = m_mice.real().hasService();
    if (std::exchange(m_hadService, has) != has && m_object)
        m_object->tellService();
    if (std::exchange(m_wasDemonstration, demonstrates) != demonstrates) {
        if (m_object)
            m_object->tellDemonstration();
        m_changes.startWith(m_mice.running());
        noteRunning();
    }
    const auto list = m_mice.deviceList();
    if (!m_sentList || std::memcmp(&*m_sentList, &list, sizeof list) != 0)
        sendDeviceList();
}

void Announcements::runningChanged() {
    const auto now = m_mice.running();
    m_settings.noteRunning(now.profile, now.stage);
    noteRunning();
}

void Announcements::inputChanged(const std::string& mouse, std::uint8_t input, bool pressed) {
    if (m_object)
        m_object->tellInput(m_clients.panels(), mouse, input, pressed);
}

void Announcements::codeChanged(const std::string& mouse, std::uint16_t code, bool pressed) {
    if (m_object && m_clients.setter())
        m_object->tellCode(*m_clients.setter(), mouse, code, pressed);
}

} // namespace quorvi
