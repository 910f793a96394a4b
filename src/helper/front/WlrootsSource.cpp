#include "helper/front/WlrootsSource.h"

#include <algorithm>
#include <span>
#include <utility>

#include <wayland-client.h>

#include "wlr-foreign-toplevel-management-unstable-v1-client-protocol.h"

namespace quorvi::front {

namespace {

constexpr std::uint32_t kUsedVersion = 1; ///< later versions add nothing useful here

std::span<const std::uint32_t> statesOf(const wl_array& states) {
    return {static_cast<const std::uint32_t*>(states.data), states.size / sizeof(std::uint32_t)};
}

void ignoreText(void*, zwlr_foreign_toplevel_handle_v1*, const char*) {}
void ignoreOutput(void*, zwlr_foreign_toplevel_handle_v1*, wl_output*) {}
void ignoreParent(void*, zwlr_foreign_toplevel_handle_v1*, zwlr_foreign_toplevel_handle_v1*) {}
void ignoreRemoval(void*, wl_registry*, std::uint32_t) {}

} // namespace

/// The compositor's events.
struct WlrootsSource::Events {
    static void appId(void* window, zwlr_foreign_toplevel_handle_v1*, const char* text) {
        static_cast<Window*>(window)->appId = text;
    }
    static void state(void* window, zwlr_foreign_toplevel_handle_v1*, wl_array* states) {
        const auto all = statesOf(*states);
        static_cast<Window*>(window)->active =
            std::ranges::find(all, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED) != all.end();
    }
    static void done(void* window, zwlr_foreign_toplevel_handle_v1*) {
        auto& changed = *static_cast<Window*>(window);
        changed.source->tellWhenNew(changed);
    }
    static void closed(void* window, zwlr_foreign_toplevel_handle_v1* handle) {
        auto& windows = static_cast<Window*>(window)->source->m_windows;
        zwlr_foreign_toplevel_handle_v1_destroy(handle);
        windows.remove_if([&](const Window& one) { return one.handle == handle; });
    }
    static void window(
        void* source, zwlr_foreign_toplevel_manager_v1*, zwlr_foreign_toplevel_handle_v1* handle) {
        auto& self = *static_cast<WlrootsSource*>(source);
        auto& made = self.m_windows.emplace_back(Window{&self, handle, {}, false, false, {}});
        zwlr_foreign_toplevel_handle_v1_add_listener(handle, &ofWindow, &made);
    }
    static void finished(void* source, zwlr_foreign_toplevel_manager_v1* manager) {
        zwlr_foreign_toplevel_manager_v1_destroy(manager);
        static_cast<WlrootsSource*>(source)->m_manager = nullptr;
    }
    static void global(
        void* source, wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t) {
        auto& self = *static_cast<WlrootsSource*>(source);
        if (self.m_manager || zwlr_foreign_toplevel_manager_v1_interface.name != std::string_view(interface))
            return;
        self.m_manager = static_cast<zwlr_foreign_toplevel_manager_v1*>(
            wl_registry_bind(registry, name, &zwlr_foreign_toplevel_manager_v1_interface, kUsedVersion));
        zwlr_foreign_toplevel_manager_v1_add_listener(self.m_manager, &ofManager, source);
    }
    static void listed(void* source, wl_callback* callback, std::uint32_t) {
        wl_callback_destroy(callback);
        static_cast<WlrootsSource*>(source)->m_isListed = true;
    }

    static constexpr zwlr_foreign_toplevel_handle_v1_listener ofWindow{
        ignoreText, appId, ignoreOutput, ignoreOutput, state, done, closed, ignoreParent};
    static constexpr zwlr_foreign_toplevel_manager_v1_listener ofManager{window, finished};
    static constexpr wl_registry_listener ofRegistry{global, ignoreRemoval};
    static constexpr wl_callback_listener ofList{listed};
};

WlrootsSource::WlrootsSource(EventLoop& loop, const std::filesystem::path& socket)
    : m_loop(loop), m_socket(socket), m_return(loop, socket, [this] { return connect(); }) {}

WlrootsSource::~WlrootsSource() {
    leave();
}

void WlrootsSource::start() {
    if (!connect())
        m_return.wait();
}

bool WlrootsSource::connect() {
    m_display = wl_display_connect(m_socket.c_str());
    if (!m_display)
        return false;
    m_registry = wl_display_get_registry(m_display);
    wl_registry_add_listener(m_registry, &Events::ofRegistry, this);
    wl_callback_add_listener(wl_display_sync(m_display), &Events::ofList, this);
    wl_display_flush(m_display);
    m_loop.watch(wl_display_get_fd(m_display), [this] { serve(); });
    return true;
}

void WlrootsSource::leave() {
    if (!m_display)
        return;
    m_loop.unwatch(wl_display_get_fd(m_display));
    for (const auto& window : m_windows)
        zwlr_foreign_toplevel_handle_v1_destroy(window.handle);
    m_windows.clear();
    if (m_manager)
        zwlr_foreign_toplevel_manager_v1_destroy(std::exchange(m_manager, nullptr));
    wl_registry_destroy(std::exchange(m_registry, nullptr));
    wl_display_disconnect(std::exchange(m_display, nullptr));
    m_isListed = false;
}

void WlrootsSource::lose() {
    leave();
    changed();
    m_return.wait();
}

void WlrootsSource::serve() {
    const bool told = tells();
    while (wl_display_prepare_read(m_display) != 0)
        wl_display_dispatch_pending(m_display);
    if (wl_display_read_events(m_display) < 0 || wl_display_dispatch_pending(m_display) < 0)
        return lose();
    wl_display_flush(m_display);
    if (m_isListed && !m_manager)
        leave();
    if (tells() != told)
        changed();
}

void WlrootsSource::tellWhenNew(Window& window) const {
    const bool isNew = window.active && (!window.wasActive || window.appId != window.toldAppId);
    window.wasActive = window.active;
    if (!isNew)
        return;
    window.toldAppId = window.appId;
    report({window.appId, "", "", 0});
}

} // namespace quorvi::front
