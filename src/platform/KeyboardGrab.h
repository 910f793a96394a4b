// Gives a window the keys that the desktop normally uses itself (Super alone, Alt+Tab, Print).
#pragma once

#include <QPointer>
#include <QWindow>

#include <memory>
#include <optional>

#include "platform/DetectableAutoRepeat.h"
#include "platform/ShortcutsInhibitor.h"

class QAbstractNativeEventFilter;

namespace quorvi {

/// Grabs the keyboard for one window: under X11 with a grab, under Wayland with a request to the compositor
/// to inhibit its shortcuts. Both end with this object and with the process; on other platforms it does
/// nothing. During an X11 grab, held keys repeat as with DetectableAutoRepeat. The focus does not change, and
/// an application that loses it is still notified.
class KeyboardGrab {
  public:
    KeyboardGrab();
    ~KeyboardGrab();
    KeyboardGrab(const KeyboardGrab&) = delete;
    KeyboardGrab& operator=(const KeyboardGrab&) = delete;

    /// Grabs the keyboard for the window, which must have the focus; another window loses the grab. Grabs
    /// again if the window already has it: another program may have prevented the first grab, and Qt's menus
    /// take over the grab and release it when they close.
    void start(QWindow* window);
    /// Releases the grab, if there is one.
    void stop();

  private:
    QPointer<QWindow> m_window;
    ShortcutsInhibitor m_inhibitor;
    std::optional<DetectableAutoRepeat> m_detectableAutoRepeat; ///< while the keyboard is grabbed
    std::unique_ptr<QAbstractNativeEventFilter> m_focusFilter;  ///< while the keyboard is grabbed
};

} // namespace quorvi
