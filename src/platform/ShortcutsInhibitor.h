// Holding back a Wayland compositor's own shortcuts (keyboard-shortcuts-inhibit-unstable-v1).
#pragma once

#include <QPointer>
#include <QWindow>

#include <memory>

struct zwp_keyboard_shortcuts_inhibit_manager_v1;
struct zwp_keyboard_shortcuts_inhibitor_v1;

namespace quorvi {

/// Inhibits the shortcuts of the compositor while a window has the focus. Does nothing on another platform,
/// and where the compositor does not offer it.
class ShortcutsInhibitor {
  public:
    ShortcutsInhibitor() = default;
    ~ShortcutsInhibitor();
    ShortcutsInhibitor(const ShortcutsInhibitor&) = delete;
    ShortcutsInhibitor& operator=(const ShortcutsInhibitor&) = delete;

    /// Inhibits for this window alone; a window that it is on for already is left as it is.
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
    bool m_asked = false; ///< the compositor was asked for the manager
};

} // namespace quorvi
