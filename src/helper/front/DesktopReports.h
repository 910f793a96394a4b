// The object on which a desktop's script reports the window in front: com.kyvar.FrontReport1 on
// /com/kyvar/Front.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "helper/front/FrontWindow.h"
#include "helper/front/WatchedName.h"

namespace quorvi::front {

/// Accepts reports only from the owners of the desktops' names. Any program of the session could switch
/// profiles by writing the settings file, but it must not do so by accident or unseen.
class DesktopReports {
  public:
    using Function = std::function<void(const FrontWindow&)>;

    explicit DesktopReports(const EventBus& bus);
    DesktopReports(const DesktopReports&) = delete;
    DesktopReports& operator=(const DesktopReports&) = delete;

    /// Accepts reports from the owner of the name. `desktop` must outlive this object.
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
