// The background application that owns the device: it tells the panels which devices there are, and the
// device what the panels' user has set.
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>

#include "events/DeviceList.h"
#include "events/EventLoop.h"
#include "events/HelperObject.h"
#include "events/SimulatedMouse.h"
#include "helper/DeviceSettings.h"
#include "helper/SessionLayout.h"
#include "helper/SimulatedDevice.h"
#include "helper/display/RunningChanges.h"
#include "helper/display/ScreenDisplay.h"
#include "helper/mice/RealMice.h"

namespace quorvi {

class Helper : public SimulatedMouseDevice, public HelperControls, RealMiceListener {
  public:
    /// The loop has to run for the mouse's macros to go on. Which mice are in use is kept in that file.
    Helper(EventBus& bus, EventLoop& loop, const SettingsFiles& files, std::filesystem::path chosenMice);
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

    /// The name of the application because of which a profile is followed, for people; empty for none.
    void setFrontReason(std::string reason);

    // The simulated mouse.
    void attach() override;
    void detach() override;
    [[nodiscard]] bool attached() const override { return m_attached; }
    [[nodiscard]] bool recording() const override { return m_recording; }
    [[nodiscard]] std::span<const std::uint8_t> record() const override { return m_settings.record(); }
    void press(std::uint8_t input) override;
    void release(std::uint8_t input) override;
    void move(std::int32_t x, std::int32_t y) override { m_mouse.move(x, y); }
    [[nodiscard]] std::uint32_t profile() const override { return m_mouse.running().profile; }
    [[nodiscard]] std::uint32_t stage() const override { return m_mouse.running().stage; }

    // The mice of this computer, and what runs now.
    void listMice(std::function<void(std::vector<MouseEntry>)> answer) override;
    [[nodiscard]] MouseResult useMouse(const std::string& mouse, bool inUse) override;
    [[nodiscard]] MouseResult setDpi(const std::string& mouse, std::uint16_t dpi) override;
    [[nodiscard]] MouseResult setCodes(
        const std::string& mouse, std::span<const std::uint16_t> codes) override;
    [[nodiscard]] MouseResult beginSetUp(
        const std::string& mouse, const ProcessSerialNumber& caller) override;
    [[nodiscard]] MouseResult watchKey(std::uint16_t code, const ProcessSerialNumber& caller) override;
    void endSetUp(const ProcessSerialNumber& caller) override;
    [[nodiscard]] bool hasService() const override { return m_mice.hasService(); }
    [[nodiscard]] bool isDemonstration() const override { return !m_mice.anyInUse(); }
    [[nodiscard]] std::uint32_t runningProfile() const override { return running().profile; }
    [[nodiscard]] std::uint32_t runningStage() const override { return running().stage; }
    /// Empty as well while the mouse runs another profile than that, which its user has chosen there.
    [[nodiscard]] std::string frontReason() const override;
    [[nodiscard]] std::uint16_t pressedInputs() const override;

  private:
    Status handleCommand(const Event& event, const ProcessSerialNumber& sender, Event& reply);
    [[nodiscard]] DeviceList deviceList() const;
    void sendDeviceList();
    [[nodiscard]] engine::Running running() const;
    void noteRunning();
    void tellFrontReason();
    void expectSaved(const SettingsRecord& before);
    void miceChanged() override;
    void runningChanged() override;
    void inputChanged(const std::string& mouse, std::uint8_t input, bool pressed) override;
    void codeChanged(const std::string& mouse, std::uint16_t code, bool pressed) override;
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
    SessionLayout m_layout;
    SimulatedDevice m_mouse;
    RealMice m_mice;
    std::array<Backend*, 2> m_backends{&m_mouse, &m_mice};
    std::unique_ptr<SimulatedMouseObject> m_object;
    std::unique_ptr<HelperObject> m_controls;
    std::function<void()> m_profilesRead;
    std::string m_frontReason;     ///< see setFrontReason()
    std::string m_toldFrontReason; ///< what frontReason() was when that was told last
    std::filesystem::path m_bundle;
    RunningChanges m_changes;
    ScreenDisplay m_display;
    bool m_wasDemonstration = true;
    bool m_hadService = false;
    std::optional<DeviceList> m_sentList;        ///< what the panels were told last
    std::optional<ProcessSerialNumber> m_setter; ///< who sets a mouse up
    std::set<ProcessSerialNumber> m_panels;      ///< shown, and told of every change
    bool m_attached = true;                      ///< a simulated mouse is plugged in until someone unplugs it
    bool m_recording = false;
    std::optional<ProcessSerialNumber> m_recorder; ///< the panel that records; nothing does once it is gone
};

} // namespace quorvi
