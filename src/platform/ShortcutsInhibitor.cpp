#include "platform/ShortcutsInhibitor.h"

#include <keyboard-shortcuts-inhibit-unstable-v1-client-protocol.h>

#include <cstring>

#include "layouts/WaylandConnection.h"
#include "platform/WaylandObjects.h"

namespace quorvi {

namespace {

template <auto destroy>
struct Destroy {
    template <typename Object>
    void operator()(Object* object) const {
        destroy(object);
    }
};

using Queue = std::unique_ptr<wl_event_queue, Destroy<wl_event_queue_destroy>>;
using Wrapper = std::unique_ptr<wl_display, Destroy<wl_proxy_wrapper_destroy>>;

void announce(void* data, wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t) {
    if (std::strcmp(interface, zwp_keyboard_shortcuts_inhibit_manager_v1_interface.name) == 0)
        *static_cast<void**>(data) =
            wl_registry_bind(registry, name, &zwp_keyboard_shortcuts_inhibit_manager_v1_interface, 1);
}

void withdraw(void*, wl_registry*, std::uint32_t) {}

constexpr wl_registry_listener kListener{announce, withdraw};

/// Uses its own queue, so that no Qt event is handled in between. Null if the compositor has no such object.
void* bindManager(wl_display* display) {
    const Queue queue(wl_display_create_queue(display));
    const Wrapper wrapper(static_cast<wl_display*>(wl_proxy_create_wrapper(display)));
    if (!queue || !wrapper)
        return nullptr;
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper.get()), queue.get());
    const WaylandRegistry registry(wl_display_get_registry(wrapper.get()));
    void* manager = nullptr;
    wl_registry_add_listener(registry.get(), &kListener, &manager);
    wl_display_roundtrip_queue(display, queue.get());
    if (manager) // the manager has no events; its objects must outlive the queue
        wl_proxy_set_queue(static_cast<wl_proxy*>(manager), nullptr);
    return manager;
}

} // namespace

void ShortcutsInhibitor::Release::operator()(zwp_keyboard_shortcuts_inhibit_manager_v1* manager) const {
    zwp_keyboard_shortcuts_inhibit_manager_v1_destroy(manager);
}

void ShortcutsInhibitor::Release::operator()(zwp_keyboard_shortcuts_inhibitor_v1* inhibitor) const {
    zwp_keyboard_shortcuts_inhibitor_v1_destroy(inhibitor);
}

ShortcutsInhibitor::~ShortcutsInhibitor() {
    stop();
    // Once Qt has closed the connection, there is nothing left to release.
    if (!waylandDisplay())
        (void)m_manager.release();
}

void ShortcutsInhibitor::start(QWindow* window) {
    if (m_inhibitor && m_window == window)
        return;
    stop();
    wl_surface* const surface = waylandSurface(window);
    wl_seat* const seat = waylandSeat();
    if (!surface || !seat)
        return;
    bind();
    if (!m_manager)
        return;
    m_window = window;
    m_inhibitor.reset(
        zwp_keyboard_shortcuts_inhibit_manager_v1_inhibit_shortcuts(m_manager.get(), surface, seat));
    wl_display_flush(waylandDisplay()); // must take effect before the next key
}

void ShortcutsInhibitor::stop() {
    m_window = nullptr;
    if (!m_inhibitor)
        return;
    if (wl_display* const display = waylandDisplay()) {
        m_inhibitor.reset();
        wl_display_flush(display);
    } else {
        (void)m_inhibitor.release();
    }
}

void ShortcutsInhibitor::bind() {
    if (m_asked)
        return;
    m_asked = true;
    m_manager.reset(static_cast<zwp_keyboard_shortcuts_inhibit_manager_v1*>(bindManager(waylandDisplay())));
}

} // namespace quorvi
