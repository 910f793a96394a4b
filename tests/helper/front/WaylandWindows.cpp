#include "helper/front/WaylandWindows.h"

#include <stdexcept>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client.h>

#include "xdg-shell-client-protocol.h"

namespace quorvi::test {

namespace {

constexpr int kSide = 64;
constexpr int kPixelSize = 4;

} // namespace

class WaylandWindows::Connection {
  public:
    explicit Connection(const std::string& socket) : display(wl_display_connect(socket.c_str())) {
        if (!display)
            throw std::runtime_error("no compositor at " + socket);
        registry = wl_display_get_registry(display);
        wl_registry_add_listener(registry, &ofRegistry, this);
        settle();
        if (!compositor || !shm || !shell)
            throw std::runtime_error("the compositor shows no windows");
        makeBuffer();
    }
    ~Connection() {
        wl_buffer_destroy(buffer);
        xdg_wm_base_destroy(shell);
        wl_shm_destroy(shm);
        wl_compositor_destroy(compositor);
        wl_registry_destroy(registry);
        wl_display_disconnect(display);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void settle() const {
        if (wl_display_roundtrip(display) < 0)
            throw std::runtime_error("the compositor is gone");
    }

    wl_display* display;
    wl_registry* registry = nullptr;
    wl_compositor* compositor = nullptr;
    wl_shm* shm = nullptr;
    xdg_wm_base* shell = nullptr;
    wl_buffer* buffer = nullptr;

  private:
    void makeBuffer() {
        const int size = kSide * kSide * kPixelSize;
        const int memory = memfd_create("window", MFD_CLOEXEC);
        if (ftruncate(memory, size) != 0)
            throw std::runtime_error("no memory for a window");
        wl_shm_pool* pool = wl_shm_create_pool(shm, memory, size);
        buffer = wl_shm_pool_create_buffer(pool, 0, kSide, kSide, kSide * kPixelSize, WL_SHM_FORMAT_XRGB8888);
        wl_shm_pool_destroy(pool);
        ::close(memory);
    }
    template <typename Object>
    void bind(Object*& object, const wl_interface& wanted, std::uint32_t name, std::string_view offered) {
        if (offered == wanted.name)
            object = static_cast<Object*>(wl_registry_bind(registry, name, &wanted, 1));
    }
    static void global(void* self, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t) {
        auto& made = *static_cast<Connection*>(self);
        made.bind(made.compositor, wl_compositor_interface, name, interface);
        made.bind(made.shm, wl_shm_interface, name, interface);
        made.bind(made.shell, xdg_wm_base_interface, name, interface);
        if (made.shell && interface == std::string_view(xdg_wm_base_interface.name))
            xdg_wm_base_add_listener(made.shell, &ofShell, self);
    }
    static void gone(void*, wl_registry*, std::uint32_t) {}
    static void ping(void*, xdg_wm_base* shell, std::uint32_t serial) { xdg_wm_base_pong(shell, serial); }

    static constexpr wl_registry_listener ofRegistry{global, gone};
    static constexpr xdg_wm_base_listener ofShell{ping};
};

struct WaylandWindows::Window {
    Window(const Connection& made, const std::string& appId) : connection(made) {
        surface = wl_compositor_create_surface(connection.compositor);
        role = xdg_wm_base_get_xdg_surface(connection.shell, surface);
        xdg_surface_add_listener(role, &ofRole, this);
        toplevel = xdg_surface_get_toplevel(role);
        xdg_toplevel_add_listener(toplevel, &ofToplevel, this);
        xdg_toplevel_set_app_id(toplevel, appId.c_str());
        xdg_toplevel_set_title(toplevel, appId.c_str());
        wl_surface_commit(surface);
        while (!isConfigured)
            connection.settle();
        wl_surface_attach(surface, connection.buffer, 0, 0);
        wl_surface_damage(surface, 0, 0, kSide, kSide);
        wl_surface_commit(surface);
        connection.settle();
    }
    ~Window() {
        xdg_toplevel_destroy(toplevel);
        xdg_surface_destroy(role);
        wl_surface_destroy(surface);
        wl_display_flush(connection.display);
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    static void configure(void* self, xdg_surface* role, std::uint32_t serial) {
        xdg_surface_ack_configure(role, serial);
        static_cast<Window*>(self)->isConfigured = true;
    }
    static void resize(void*, xdg_toplevel*, std::int32_t, std::int32_t, wl_array*) {}
    static void closeWanted(void*, xdg_toplevel*) {}
    static constexpr xdg_surface_listener ofRole{configure};
    static constexpr xdg_toplevel_listener ofToplevel{resize, closeWanted, nullptr, nullptr};

    const Connection& connection;
    wl_surface* surface;
    xdg_surface* role;
    xdg_toplevel* toplevel;
    bool isConfigured = false;
};

WaylandWindows::WaylandWindows(const std::string& socket)
    : m_connection(std::make_unique<Connection>(socket)) {}

WaylandWindows::~WaylandWindows() = default;

void WaylandWindows::show(const std::string& appId) {
    m_windows.erase(appId);
    m_windows[appId] = std::make_unique<Window>(*m_connection, appId);
}

void WaylandWindows::setTitle(const std::string& appId, const std::string& title) {
    xdg_toplevel_set_title(m_windows.at(appId)->toplevel, title.c_str());
    m_connection->settle();
}

void WaylandWindows::settle() const {
    m_connection->settle();
}

void WaylandWindows::close(const std::string& appId) {
    m_windows.erase(appId);
    m_connection->settle();
}

} // namespace quorvi::test
