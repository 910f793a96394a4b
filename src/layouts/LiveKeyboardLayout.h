// The keyboard layout in use, and how one hears that it has changed.
//
// A display server announces a change in several notices at once; the new layout is only read when it is
// asked for. All of this is for one thread.
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

    /// The layout in use. While the server has none to give, the last one that it gave; before the first, the
    /// one that this machine is configured with. Null when not even that one is installed.
    [[nodiscard]] KeyboardLayoutRef layout();

    /// The function is called whenever the layout may have changed, out of process() or of layout(). It must
    /// not destroy this object.
    void onChange(std::function<void()> function) { m_onChange = std::move(function); }

    /// What to watch for reading; -1 when there is nothing to watch (any more).
    [[nodiscard]] virtual int fd() const { return -1; }

    /// Reads what has come, without waiting.
    virtual void process() {}

  protected:
    LiveKeyboardLayout() = default;

    /// Asks the server; null when it has no layout to give.
    [[nodiscard]] virtual KeyboardLayoutRef read() = 0;

    /// To be called when the server announces a change.
    void changed();

  private:
    KeyboardLayoutRef m_layout;
    bool m_isCurrent = false;
    std::function<void()> m_onChange;
};

/// The layout that this machine is configured with, which never changes.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> configuredKeyboardLayout();

/// The layout of the display server that the environment names: the Wayland compositor of WAYLAND_DISPLAY,
/// else the X11 server of DISPLAY, else the configured one. Never null.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> keyboardLayoutOfEnvironment();

} // namespace quorvi
