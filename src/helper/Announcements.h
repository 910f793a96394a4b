// The helper's notifications: to panels, to listeners on the bus, and to the user.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "helper/AllMice.h"
#include "helper/Clients.h"
#include "helper/DeviceSettings.h"
#include "helper/display/RunningChanges.h"
#include "helper/display/ScreenDisplay.h"

namespace quorvi {

class Announcements final : public RealMiceListener {
  public:
    /// `bundle` is the panel's, for the texts on the screen. The other arguments must outlive the object,
    /// except the mice, which are used only in their notifications and in calls of the members.
    Announcements(EventBus& bus, DeviceSettings& settings, AllMice& mice, const Clients& clients,
        std::filesystem::path bundle);
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;

    /// Sets the object that sends bus signals; null for none, the default. It must outlive this object or be
    /// reset.
    void speakBy(const HelperObject* object) { m_object = object; }

    /// Sends the list to every visible panel.
    void sendDeviceList();

    /// The displayed name of the application that chose the profile; empty for none.
    void setFrontReason(std::string reason);
    /// Also empty while the mouse runs another profile, chosen with its own buttons.
    [[nodiscard]] std::string frontReason() const;
    /// Notifies listeners if it has changed.
    void tellFrontReason();

    /// Call this after re-reading the settings, with the old ones. A change of the running profile that
    /// follows was made in the panel, which shows it already.
    void expectSaved(const SettingsRecord& before);

    // Also called for the simulated mouse while it is reported.
    void miceChanged() override;
    void runningChanged() override;
    void inputChanged(const std::string& mouse, std::uint8_t input, bool pressed) override;
    void codeChanged(const std::string& mouse, std::uint16_t code, bool pressed) override;

  private:
    void noteRunning();

    EventBus& m_bus;
    DeviceSettings& m_settings;
    AllMice& m_mice;
    const Clients& m_clients;
    std::filesystem::path m_bundle;
    const HelperObject* m_object = nullptr;
    std::string m_frontReason;     ///< see setFrontReason()
    std::string m_toldFrontReason; ///< the last sent frontReason()
    RunningChanges m_changes;
    ScreenDisplay m_display;
    bool m_wasDemonstration = true;
    bool m_hadService = false;
    std::optional<DeviceList> m_sentList; ///< the last list sent to the panels
};

} // namespace quorvi
