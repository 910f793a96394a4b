// The background application that owns the device: it handles the panels' messages and gives the user's
// settings to the device.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "helper/AllMice.h"
#include "helper/Announcements.h"
#include "helper/Clients.h"
#include "helper/DeviceSettings.h"
#include "helper/MouseControls.h"
#include "helper/SimulatedMouseControls.h"

namespace quorvi {

class Helper {
  public:
    /// Macros play only while the loop runs. The mice in use are stored in the file `chosenMice`.
    Helper(EventBus& bus, EventLoop& loop, const SettingsFiles& files, std::filesystem::path chosenMice);
    ~Helper();
    Helper(const Helper&) = delete;
    Helper& operator=(const Helper&) = delete;

    /// Joins the process list and sends the device list to the visible panels. Unless the result is `owned`,
    /// the helper must not run.
    [[nodiscard]] NameResult start();

    /// Runs the profile, an index of profiles(), from its default stage; std::nullopt returns to the user's
    /// choice. Writes no file, and does nothing if that profile is already followed. The reason is the
    /// displayed name of the application that caused it; empty for none.
    void followProfile(std::optional<std::size_t> profile, std::string reason);
    /// "name" and "driver" of each profile, in the order of the mouse's record.
    [[nodiscard]] const plist::Array& profiles() const { return m_settings.profiles(); }
    /// Called after profiles() has been re-read, before the mouse gets the record; it may call
    /// followProfile().
    void onProfilesRead(std::function<void()> function) { m_profilesRead = std::move(function); }

  private:
    Status handleCommand(const Event& event, const ProcessSerialNumber& sender, Event& reply);
    bool reloadSettings();
    void giveRecord();
    void setRecording(bool recording, const ProcessSerialNumber& sender);
    void addPanel(const ProcessSerialNumber& panel);
    void removePanel(const ProcessSerialNumber& panel);
    void forget(const ProcessSerialNumber& gone);
    void greetShownPanels();

    EventBus& m_bus;
    DeviceSettings m_settings;
    Clients m_clients;
    Announcements m_announcements; ///< before the mice, which it listens to
    AllMice m_mice;
    SimulatedMouseControls m_simulatedControls;
    MouseControls m_controls;
    std::function<void()> m_profilesRead;
};

} // namespace quorvi
