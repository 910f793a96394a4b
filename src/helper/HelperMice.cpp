// Which mouse the helper speaks of: the simulated one, or those that their user has chosen.
#include <algorithm>
#include <cstring>
#include <utility>

#include "helper/Helper.h"
#include "helper/display/ChangeTexts.h"

namespace quorvi {

DeviceList Helper::deviceList() const {
    const auto devices = isDemonstration() ? m_mouse.devices() : m_mice.devices();
    DeviceList list;
    list.count = static_cast<std::uint16_t>(devices.size());
    std::ranges::copy(devices, list.device.begin());
    return list;
}

void Helper::sendDeviceList() {
    m_sentList = deviceList();
    for (const auto& panel : m_panels)
        (void)m_bus.send(panel, makeDeviceListEvent(*m_sentList));
}

engine::Running Helper::running() const {
    return isDemonstration() ? m_mouse.running() : m_mice.running();
}

void Helper::noteRunning() {
    if (m_controls)
        m_controls->tellRunning();
    tellFrontReason();
    const auto now = running();
    if (const auto shown = m_changes.note(now, profiles()))
        m_display.show(textOf(*shown, now, profiles(), Bundle(m_bundle.native())));
}

/// As the engine does: a record whose settings are those of the one before changes nothing that runs.
void Helper::expectSaved(const SettingsRecord& before) {
    const auto now = m_settings.settings();
    if (std::memcmp(&before, &now, sizeof now) != 0)
        m_changes.expect(now.profileId, now.stage);
}

void Helper::setFrontReason(std::string reason) {
    m_frontReason = std::move(reason);
    tellFrontReason();
}

/// It depends on what runs too, and mostly does not change with it.
void Helper::tellFrontReason() {
    auto now = frontReason();
    if (now == m_toldFrontReason)
        return;
    m_toldFrontReason = std::move(now);
    if (m_controls)
        m_controls->tellFrontReason();
}

std::string Helper::frontReason() const {
    const auto followed = followedProfile();
    return followed && running().profile == *followed + 1 ? m_frontReason : std::string();
}

void Helper::press(std::uint8_t input) {
    m_layout.follow();
    m_mouse.press(input);
    if (isDemonstration())
        inputChanged("", input, true);
}

void Helper::release(std::uint8_t input) {
    m_mouse.release(input);
    if (isDemonstration())
        inputChanged("", input, false);
}

std::uint16_t Helper::pressedInputs() const {
    return isDemonstration() ? m_mouse.pressedInputs() : m_mice.pressedInputs();
}

void Helper::listMice(std::function<void(std::vector<MouseEntry>)> answer) {
    m_mice.list(std::move(answer));
}

MouseResult Helper::useMouse(const std::string& mouse, bool inUse) {
    return m_mice.use(mouse, inUse);
}

MouseResult Helper::setDpi(const std::string& mouse, std::uint16_t dpi) {
    return m_mice.setDpi(mouse, dpi);
}

MouseResult Helper::setCodes(const std::string& mouse, std::span<const std::uint16_t> codes) {
    return m_mice.setCodes(mouse, codes);
}

MouseResult Helper::beginSetUp(const std::string& mouse, const ProcessSerialNumber& caller) {
    if (m_setter && m_setter != caller)
        return MouseResult::busy;
    const auto result = m_mice.setUp().begin(mouse);
    if (result == MouseResult::done) {
        m_setter = caller;
        m_bus.watchProcess(caller);
    }
    return result;
}

MouseResult Helper::watchKey(std::uint16_t code, const ProcessSerialNumber& caller) {
    return m_setter == caller ? m_mice.setUp().watchKey(code) : MouseResult::notInUse;
}

void Helper::endSetUp(const ProcessSerialNumber& caller) {
    if (m_setter != caller)
        return;
    m_setter.reset();
    m_mice.setUp().end();
    unwatchUnlessNeeded(caller);
}

/// Panels read their settings anew with each list, so they get one only when it is another.
void Helper::miceChanged() {
    if (!isDemonstration())
        m_layout.follow();
    if (m_controls)
        m_controls->tellMiceChanged();
    const bool has = hasService();
    if (std::exchange(m_hadService, has) != has && m_controls)
        m_controls->tellService();
    const bool demonstrates = isDemonstration();
    if (std::exchange(m_wasDemonstration, demonstrates) != demonstrates) {
        if (m_controls)
            m_controls->tellDemonstration();
        m_changes.startWith(running());
        noteRunning();
    }
    const auto list = deviceList();
    if (!m_sentList || std::memcmp(&*m_sentList, &list, sizeof list) != 0)
        sendDeviceList();
}

void Helper::runningChanged() {
    const auto now = running();
    m_settings.noteRunning(now.profile, now.stage);
    noteRunning();
}

void Helper::inputChanged(const std::string& mouse, std::uint8_t input, bool pressed) {
    if (m_controls)
        m_controls->tellInput(m_panels, mouse, input, pressed);
}

void Helper::codeChanged(const std::string& mouse, std::uint16_t code, bool pressed) {
    if (m_controls && m_setter)
        m_controls->tellCode(*m_setter, mouse, code, pressed);
}

} // namespace quorvi
