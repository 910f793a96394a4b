// The keyboard layout in use, and notification of its changes.
//
// A display server sends several notices for one change; the new layout is read only when layout() is called.
// All of this is for one thread.
#pragma once

#include <functional>
#include <memory>

#include "keyboard/KeyboardLayout.h"

namespace quorvi {

class LiveKeyboardLayout {
  public:
    virtual ~LiveKeyboardLayout() = default;
    LiveKeyboardLayout(const LiveKeyboardLayout&) = delete;
    LiveKeyboardLayout& operator=(const LiveKeyboardLayout&) = delete;

    /// The layout in use. If the server has none, the last one it had; before the first, the machine's
    /// configured one. Null if not even that is installed.
    [[nodiscard]] KeyboardLayoutRef layout();

    /// The function is called whenever the layout may have changed, from process() or layout(). It must not
    /// destroy this object.
    void onChange(std::function<void()> function) { m_onChange = std::move(function); }

    /// The descriptor to watch for reading; -1 for none.
    [[nodiscard]] virtual int fd() const { return -1; }

    /// Reads pending events without waiting.
    virtual void process() {}

  protected:
    LiveKeyboardLayout() = default;

    /// Queries the server; null if it has no layout.
    [[nodiscard]] virtual KeyboardLayoutRef read() = 0;

    /// Call this when the server announces a change.
    void changed();

  private:
    KeyboardLayoutRef m_layout;
    bool m_isCurrent = false;
    std::function<void()> m_onChange;
};

/// The machine's configured layout, which never changes.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> configuredKeyboardLayout();

/// The layout of the environment's display server: the Wayland compositor of WAYLAND_DISPLAY, else the X11
/// server of DISPLAY, else the configured one. Never null.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> keyboardLayoutOfEnvironment();

} // namespace quorvi
