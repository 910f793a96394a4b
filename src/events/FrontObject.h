// The helper's bus object for the application in front.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "events/EventBus.h"

namespace quorvi {

struct FrontState {
    std::string application; ///< its displayed name; empty before the first one
    std::string source;      ///< the source: "X11", "KWin", "wlroots", "GNOME"; empty if there is none
    std::string desktop;     ///< the desktop's name; may be empty
    /// The state of the Shell extension that reports on GNOME: "missing", "disabled", "off" (with all
    /// others), "error", "enabled"; empty on other desktops.
    std::string gnomeExtension;

    bool operator==(const FrontState&) const = default;
};

/// Offers the object on the bus while it lives. The bus must outlive it.
class FrontObject {
  public:
    /// Returns null if the bus is gone or already has such an object.
    [[nodiscard]] static std::unique_ptr<FrontObject> offer(const EventBus& bus);
    ~FrontObject();
    FrontObject(const FrontObject&) = delete;
    FrontObject& operator=(const FrontObject&) = delete;

    /// Called from EventBus::process() when a client asks to turn the extension on.
    void onEnableGnomeExtension(std::function<void()> function);
    /// Replaces the state and signals the changed properties.
    void tell(const FrontState& state) const;

  private:
    FrontObject() = default;
    struct Registration;
    std::unique_ptr<Registration> m_registration;
};

} // namespace quorvi
