// Inhibits a Wayland compositor's own shortcuts (keyboard-shortcuts-inhibit-unstable-v1).
#pragma once

#include <QPointer>
#include <QWindow>

#include <memory>

struct zwp_keyboard_shortcuts_inhibit_manager_v1;
struct zwp_keyboard_shortcuts_inhibitor_v1;

namespace quorvi {

/// Inhibits the shortcuts of the compositor while a window has the focus. Does nothing on other platforms, or
/// if the compositor does not support it.
class ShortcutsInhibitor {
  public:
    ShortcutsInhibitor() = default;
    ~ShortcutsInhibitor();
    ShortcutsInhibitor(const ShortcutsInhibitor&) = delete;
    ShortcutsInhibitor& operator=(const ShortcutsInhibitor&) = delete;

    /// Inhibits for this window only; does nothing if it already is.
    void start(QWindow* window);
    void stop();

  private:
    void bind();

    struct Release {
        void operator()(zwp_keyboard_shortcuts_inhibit_manager_v1* manager) const;
        void operator()(zwp_keyboard_shortcuts_inhibitor_v1* inhibitor) const;
    };
    QPointer<QWindow> m_window;
    std::unique_ptr<zwp_keyboard_shortcuts_inhibit_manager_v1, Release> m_manager;
    std::unique_ptr<zwp_keyboard_shortcuts_inhibitor_v1, Release> m_inhibitor;
    bool m_asked = false; ///< the manager was requested
};

} // namespace quorvi
