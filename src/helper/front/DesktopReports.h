// Where a desktop's own script tells which window is in front: com.kyvar.FrontReport1 on /com/kyvar/Front.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "helper/front/FrontWindow.h"
#include "helper/front/WatchedName.h"

namespace quorvi::front {

/// Believes the owners of the desktops' names alone. Another program of the session could switch the profile
/// by writing the settings file, but it is not to do so by accident or unseen.
class DesktopReports {
  public:
    using Function = std::function<void(const FrontWindow&)>;

    explicit DesktopReports(const EventBus& bus);
    DesktopReports(const DesktopReports&) = delete;
    DesktopReports& operator=(const DesktopReports&) = delete;

    /// Takes what the owner of the name tells, who must live as long.
    void listenTo(const WatchedName& desktop, Function function);

  private:
    struct Listener {
        const WatchedName* desktop;
        Function function;
    };
    static int receiveWindow(sd_bus_message* call, void* self, sd_bus_error* error);
    static const sd_bus_vtable vtable[];

    std::vector<Listener> m_listeners;
    events::SlotPtr m_slot;
};

} // namespace quorvi::front
