#include "helper/SimulatedMouseControls.h"

namespace quorvi {

SimulatedMouseControls::SimulatedMouseControls(
    EventBus& bus, const DeviceSettings& settings, AllMice& mice, Announcements& announcements)
    : m_settings(settings), m_mice(mice), m_mouse(mice.simulated()), m_announcements(announcements),
      m_object(SimulatedMouseObject::offer(bus, *this)) {
    m_mouse.onFrame([this](std::span<const input_event> frame) {
        if (m_object)
            m_object->tellEmitted(frame);
    });
    m_mouse.onRunning([this] {
        if (m_object)
            m_object->tellRunning();
        if (m_mice.isDemonstration())
            m_announcements.runningChanged();
    });
}

SimulatedMouseControls::~SimulatedMouseControls() {
    m_mouse.onFrame(nullptr);
    m_mouse.onRunning(nullptr);
}

void SimulatedMouseControls::attach() {
    m_mouse.setPluggedIn(true);
    m_announcements.sendDeviceList();
}

void SimulatedMouseControls::detach() {
    m_mouse.releaseAll();
    m_mouse.setPluggedIn(false);
    m_announcements.sendDeviceList();
}

void SimulatedMouseControls::press(std::uint8_t input) {
    m_mice.followLayout();
    m_mouse.press(input);
    if (m_mice.isDemonstration())
        m_announcements.inputChanged("", input, true);
}

void SimulatedMouseControls::release(std::uint8_t input) {
    m_mouse.release(input);
    if (m_mice.isDemonstration())
        m_announcements.inputChanged("", input, false);
}

} // namespace quorvi
