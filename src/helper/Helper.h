// The background application that owns the device: it tells the panels which devices there are, and the
// device what the panels' user has set.
#pragma once

#include <optional>
#include <set>

#include "helper/DeviceSettings.h"
#include "platform/events/DeviceList.h"
#include "platform/events/SimulatedMouse.h"

namespace quorvi {

class Helper : public SimulatedMouseDevice {
  public:
    Helper(EventBus& bus, SettingsFiles files);
    ~Helper() override;
    Helper(const Helper&) = delete;
    Helper& operator=(const Helper&) = delete;

    /// Joins the process list and greets the panels that are shown already. Anything but owned: it shall not
    /// run.
    [[nodiscard]] NameResult start();

    void attach() override;
    void detach() override;
    [[nodiscard]] bool attached() const override { return m_attached; }
    [[nodiscard]] bool recording() const override { return m_recording; }
    [[nodiscard]] std::span<const std::uint8_t> record() const override { return m_settings.record(); }

  private:
    Status handleCommand(const Event& event, const ProcessSerialNumber& sender, Event& reply);
    [[nodiscard]] DeviceList deviceList() const;
    void setAttached(bool attached);
    void addPanel(const ProcessSerialNumber& panel);
    void removePanel(const ProcessSerialNumber& panel);
    void setRecorder(std::optional<ProcessSerialNumber> recorder);
    void forget(const ProcessSerialNumber& gone);
    void unwatchUnlessNeeded(const ProcessSerialNumber& process);
    void greetShownPanels();

    EventBus& m_bus;
    DeviceSettings m_settings;
    std::unique_ptr<SimulatedMouseObject> m_object;
    std::set<ProcessSerialNumber> m_panels; ///< shown, and told of every change
    bool m_attached = true;                 ///< a simulated mouse is plugged in until someone unplugs it
    bool m_recording = false;
    std::optional<ProcessSerialNumber> m_recorder; ///< the panel that records; nothing does once it is gone
};

} // namespace quorvi
