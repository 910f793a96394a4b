#include "platform/WaylandObjects.h"

#include <QGuiApplication>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>

namespace quorvi {

namespace {

bool onWayland() {
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

void* integrationResource(const char* name) {
    return onWayland() ? QGuiApplication::platformNativeInterface()->nativeResourceForIntegration(name)
                       : nullptr;
}

} // namespace

wl_display* waylandDisplay() {
    return static_cast<wl_display*>(integrationResource("wl_display"));
}

wl_seat* waylandSeat() {
    return static_cast<wl_seat*>(integrationResource("wl_seat"));
}

wl_surface* waylandSurface(QWindow* window) {
    // A query for a window that is not shown yet would create it.
    if (!onWayland() || !window || !window->handle())
        return nullptr;
    return static_cast<wl_surface*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForWindow("surface", window));
}

} // namespace quorvi
