// The background application that owns the device: it does what the panels say, and tells the device what
// the panels' user has set.
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
    /// The loop has to run for the mouse's macros to go on. Which mice are in use is kept in that file.
    Helper(EventBus& bus, EventLoop& loop, const SettingsFiles& files, std::filesystem::path chosenMice);
    ~Helper();
    Helper(const Helper&) = delete;
    Helper& operator=(const Helper&) = delete;

    /// Joins the process list and greets the panels that are shown already. Anything but owned: it shall not
    /// run.
    [[nodiscard]] NameResult start();

    /// Runs the profile, an index of profiles(), from its default stage on, until it is told another one;
    /// nothing runs the one that the user chose. No file is written, and what is followed already changes
    /// nothing. The reason is the name of the application because of which it is followed, for people; empty
    /// for none.
    void followProfile(std::optional<std::size_t> profile, std::string reason);
    /// "name" and "driver" of each profile, in the order of the mouse's record.
    [[nodiscard]] const plist::Array& profiles() const { return m_settings.profiles(); }
    /// Called when profiles() has been read anew, before the mouse gets the record: followProfile() may be
    /// called from it.
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
