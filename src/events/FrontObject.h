// What the helper says on the bus of the application in front.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "events/EventBus.h"

namespace quorvi {

struct FrontState {
    std::string application; ///< its name as it is shown; empty before the first one
    std::string source;      ///< who tells: "X11", "KWin", "wlroots", "GNOME"; empty when nobody does
    std::string desktop;     ///< the desktop's name; may be empty
    /// The Shell extension that tells on GNOME: "missing", "disabled", "off" (with all others), "error",
    /// "enabled"; empty on other desktops.
    std::string gnomeExtension;

    bool operator==(const FrontState&) const = default;
};

/// The object on the bus, for as long as it lives. The bus must live longer.
class FrontObject {
  public:
    /// A null pointer when the bus is gone or has such an object already.
    [[nodiscard]] static std::unique_ptr<FrontObject> offer(const EventBus& bus);
    ~FrontObject();
    FrontObject(const FrontObject&) = delete;
    FrontObject& operator=(const FrontObject&) = delete;

    /// Called from EventBus::process() when somebody wants the extension to be switched on.
    void onEnableGnomeExtension(std::function<void()> function);
    /// Replaces the state and tells whoever listens what of it is another one.
    void tell(const FrontState& state) const;

  private:
    FrontObject() = default;
    struct Registration;
    std::unique_ptr<Registration> m_registration;
};

} // namespace quorvi
