// The background application that owns the device: it tells the panels which devices there are, and the
// device what the panels' user has set.
#pragma once

#include <functional>
#include <optional>
#include <set>

#include "helper/DeviceSettings.h"
#include "helper/SimulatedDevice.h"
#include "platform/events/DeviceList.h"
#include "platform/events/EventLoop.h"
#include "platform/events/SimulatedMouse.h"

namespace quorvi {

class Helper : public SimulatedMouseDevice {
  public:
    /// The loop has to run for the mouse's macros to go on.
    Helper(EventBus& bus, EventLoop& loop, SettingsFiles files);
    ~Helper() override;
    Helper(const Helper&) = delete;
    Helper& operator=(const Helper&) = delete;

    /// Joins the process list and greets the panels that are shown already. Anything but owned: it shall not
    /// run.
    [[nodiscard]] NameResult start();

    /// Runs the profile, an index of profiles(), from its default stage on, until it is told another one;
    /// nothing runs the one that the user chose. No file is written, and what is followed already changes
    /// nothing.
    void followProfile(std::optional<std::size_t> profile);
    [[nodiscard]] std::optional<std::size_t> followedProfile() const { return m_settings.followed(); }
    /// "name" and "driver" of each profile, in the order of the mouse's record.
    [[nodiscard]] const plist::Array& profiles() const { return m_settings.profiles(); }
    /// Called when profiles() has been read anew, before the mouse gets the record: followProfile() may be
    /// called from it.
    void onProfilesRead(std::function<void()> function) { m_profilesRead = std::move(function); }

    void attach() override;
    void detach() override;
    [[nodiscard]] bool attached() const override { return m_attached; }
    [[nodiscard]] bool recording() const override { return m_recording; }
    [[nodiscard]] std::span<const std::uint8_t> record() const override { return m_settings.record(); }
    void press(std::uint8_t input) override { m_mouse.press(input); }
    void release(std::uint8_t input) override { m_mouse.release(input); }
    void move(std::int32_t x, std::int32_t y) override { m_mouse.move(x, y); }
    [[nodiscard]] std::uint32_t profile() const override { return m_mouse.running().profile; }
    [[nodiscard]] std::uint32_t stage() const override { return m_mouse.running().stage; }

  private:
    Status handleCommand(const Event& event, const ProcessSerialNumber& sender, Event& reply);
    [[nodiscard]] DeviceList deviceList() const;
    void setAttached(bool attached);
    void setRecording(bool recording);
    bool reloadSettings();
    void giveRecord();
    void addPanel(const ProcessSerialNumber& panel);
    void removePanel(const ProcessSerialNumber& panel);
    void setRecorder(std::optional<ProcessSerialNumber> recorder);
    void forget(const ProcessSerialNumber& gone);
    void unwatchUnlessNeeded(const ProcessSerialNumber& process);
    void greetShownPanels();

    EventBus& m_bus;
    DeviceSettings m_settings;
    SimulatedDevice m_mouse;
    std::unique_ptr<SimulatedMouseObject> m_object;
    std::function<void()> m_profilesRead;
    std::set<ProcessSerialNumber> m_panels; ///< shown, and told of every change
    bool m_attached = true;                 ///< a simulated mouse is plugged in until someone unplugs it
    bool m_recording = false;
    std::optional<ProcessSerialNumber> m_recorder; ///< the panel that records; nothing does once it is gone
};

} // namespace quorvi
