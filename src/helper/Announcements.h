// What the helper tells without being asked: the panels, whoever listens on the bus, and the user.
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
    /// Bundle: the panel's, for the texts on the screen. All others must live longer but for the mice, which
    /// are used only while they tell of themselves, or a member is called.
    Announcements(EventBus& bus, DeviceSettings& settings, AllMice& mice, const Clients& clients,
        std::filesystem::path bundle);
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;

    /// What speaks on the bus; null, as at first, for nothing. It must live longer, or be taken away.
    void speakBy(const HelperObject* object) { m_object = object; }

    /// To every panel that is shown.
    void sendDeviceList();

    /// The name of the application because of which a profile is followed, for people; empty for none.
    void setFrontReason(std::string reason);
    /// Empty as well while the mouse runs another profile than that, which its user has chosen there.
    [[nodiscard]] std::string frontReason() const;
    /// To whoever listens, when it is another.
    void tellFrontReason();

    /// The settings were these before they were read anew. What runs because of that was chosen in the panel,
    /// which shows it.
    void expectSaved(const SettingsRecord& before);

    // Of the simulated mouse too, while it is the one that is spoken of.
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
    std::string m_toldFrontReason; ///< what frontReason() was when that was told last
    RunningChanges m_changes;
    ScreenDisplay m_display;
    bool m_wasDemonstration = true;
    bool m_hadService = false;
    std::optional<DeviceList> m_sentList; ///< what the panels were told last
};

} // namespace quorvi
