// The window in front on sway, labwc and similar compositors.
#pragma once

#include <list>
#include <memory>
#include <string>

#include "events/EventLoop.h"
#include "events/ReturningSocket.h"
#include "helper/front/FrontSource.h"

struct wl_display;
struct wl_registry;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

namespace quorvi::front {

/// Uses wlr-foreign-toplevel-management, the protocol of their panels. It identifies windows only by app_id.
/// Disconnects at once from a compositor without it.
class WlrootsSource : public FrontSource {
  public:
    /// The compositor's socket. The loop must outlive the object.
    WlrootsSource(EventLoop& loop, const std::filesystem::path& socket);
    ~WlrootsSource() override;

    void start() override;
    [[nodiscard]] bool tells() const override { return m_manager != nullptr; }
    [[nodiscard]] std::string_view name() const override { return "wlroots"; }

  private:
    struct Events;
    struct Window {
        WlrootsSource* source;
        zwlr_foreign_toplevel_handle_v1* handle;
        std::string appId;
        bool active = false;
        bool wasActive = false; ///< at the compositor's last "done" event
        std::string toldAppId;
    };

    bool connect();
    void leave();
    void lose();
    void serve();
    void tellWhenNew(Window& window) const;

    EventLoop& m_loop;
    std::filesystem::path m_socket;
    ReturningSocket m_return;
    wl_display* m_display = nullptr;
    wl_registry* m_registry = nullptr;
    zwlr_foreign_toplevel_manager_v1* m_manager = nullptr;
    bool m_isListed = false; ///< the compositor has sent its complete list
    std::list<Window> m_windows;
};

} // namespace quorvi::front
