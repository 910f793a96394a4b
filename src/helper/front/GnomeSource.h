// The window in front on GNOME on Wayland.
#pragma once

#include <functional>
#include <string>

#include "helper/front/BusCall.h"
#include "helper/front/DesktopReports.h"
#include "helper/front/FrontSource.h"

namespace quorvi::front {

/// GNOME Shell tells only its extensions. Ours is installed with the panel; the user must turn it on, here or
/// in the Shell's own list, and the Shell finds it at login.
class GnomeSource : public FrontSource {
  public:
    /// Both must outlive the object.
    GnomeSource(const EventBus& bus, DesktopReports& reports);

    void start() override {}
    [[nodiscard]] bool tells() const override { return m_extension == "enabled"; }
    [[nodiscard]] std::string_view name() const override { return "GNOME"; }

    /// The extension's state, as in FrontState. onChange() reports changes.
    [[nodiscard]] const std::string& extension() const { return m_extension; }
    /// Asks the Shell to turn the extension on, and extensions in general if the user has turned them off.
    void enableExtension();

  private:
    void watchShell();
    void look();
    void takeShell(sd_bus_message* answer);
    void takeExtension(sd_bus_message* answer);
    void setExtension(std::string state);
    static int receiveChange(sd_bus_message* signal, void* self, sd_bus_error*);

    const EventBus& m_bus;
    BusCall m_call;     ///< reads the state; restarted by a change
    BusCall m_enabling; ///< not interrupted by changes
    std::string m_uuid; ///< of the extension for this Shell version
    bool m_extensionsAreOff = false;
    std::string m_extension;
    events::SlotPtr m_stateMatch;
    events::SlotPtr m_shellMatch;
    WatchedName m_shell;
};

} // namespace quorvi::front
