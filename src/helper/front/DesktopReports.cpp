#include "helper/front/DesktopReports.h"

#include <algorithm>

#include "events/EventBusPrivate.h"

namespace quorvi::front {

const sd_bus_vtable DesktopReports::vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_NAMES("Window", "sssi", "desktopId\0windowClass\0windowName\0pid\0", "",
        /* no result */, receiveWindow, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

DesktopReports::DesktopReports(const EventBus& bus) {
    sd_bus_slot* slot = nullptr;
    if (sd_bus_add_object_vtable(bus.connection().bus.get(), &slot, "/com/kyvar/Front",
            "com.kyvar.FrontReport1", vtable, this) >= 0)
        m_slot.reset(slot);
}

void DesktopReports::listenTo(const WatchedName& desktop, Function function) {
    m_listeners.push_back({&desktop, std::move(function)});
}

int DesktopReports::receiveWindow(sd_bus_message* call, void* self, sd_bus_error* error) {
    const char* desktopId = nullptr;
    const char* windowClass = nullptr;
    const char* windowName = nullptr;
    std::int32_t pid = 0;
    if (const int read = sd_bus_message_read(call, "sssi", &desktopId, &windowClass, &windowName, &pid);
        read < 0)
        return read;
    const std::string_view sender = sd_bus_message_get_sender(call);
    const auto& listeners = static_cast<DesktopReports*>(self)->m_listeners;
    const auto listener =
        std::ranges::find_if(listeners, [&](const Listener& one) { return one.desktop->owner() == sender; });
    if (listener == listeners.end())
        return sd_bus_error_set(
            error, SD_BUS_ERROR_ACCESS_DENIED, "Only the desktop tells which window is in front");
    listener->function({desktopId, windowClass, windowName, pid});
    return sd_bus_reply_method_return(call, "");
}

} // namespace quorvi::front
