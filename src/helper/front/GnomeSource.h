// The window in front on GNOME on Wayland.
#pragma once

#include <functional>
#include <string>

#include "helper/front/BusCall.h"
#include "helper/front/DesktopReports.h"
#include "helper/front/FrontSource.h"

namespace quorvi::front {

/// GNOME Shell lets nobody but its extensions know. Ours is installed with the panel; the user has to switch
/// it on, here or in the Shell's own list, and the Shell finds it when they log in.
class GnomeSource : public FrontSource {
  public:
    /// They must live longer.
    GnomeSource(const EventBus& bus, DesktopReports& reports);

    void start() override {}
    [[nodiscard]] bool tells() const override { return m_extension == "enabled"; }
    [[nodiscard]] std::string_view name() const override { return "GNOME"; }

    /// The extension's state as FrontState says it. It is told by onChange().
    [[nodiscard]] const std::string& extension() const { return m_extension; }
    /// Asks the Shell to switch the extension on, and extensions with it when the user has switched them off.
    void enableExtension();

  private:
    void watchShell();
    void look();
    void takeShell(sd_bus_message* answer);
    void takeExtension(sd_bus_message* answer);
    void setExtension(std::string state);
    static int receiveChange(sd_bus_message* signal, void* self, sd_bus_error*);

    const EventBus& m_bus;
    BusCall m_call;     ///< looks; a change that comes meanwhile looks anew
    BusCall m_enabling; ///< goes on whatever changes meanwhile
    std::string m_uuid; ///< of the extension that this Shell loads
    bool m_extensionsAreOff = false;
    std::string m_extension;
    events::SlotPtr m_stateMatch;
    events::SlotPtr m_shellMatch;
    WatchedName m_shell;
};

} // namespace quorvi::front
