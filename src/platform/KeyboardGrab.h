// Keys that the desktop takes for itself (Super alone, Alt+Tab, Print), for a window that wants every key.
#pragma once

#include <QPointer>
#include <QWindow>

#include <memory>
#include <optional>

#include "platform/DetectableAutoRepeat.h"
#include "platform/ShortcutsInhibitor.h"

class QAbstractNativeEventFilter;

namespace quorvi {

/// Takes the keyboard for one window: under X11 by a grab, under Wayland by asking the compositor to hold
/// back its shortcuts. Both end with this object and with the process; on other platforms there is nothing to
/// take. While it is taken under X11, a held key repeats as DetectableAutoRepeat says. The focus stays where
/// it is, and an application that loses it is told so as ever.
class KeyboardGrab {
  public:
    KeyboardGrab();
    ~KeyboardGrab();
    KeyboardGrab(const KeyboardGrab&) = delete;
    KeyboardGrab& operator=(const KeyboardGrab&) = delete;

    /// Takes the keyboard for the window, which must have the focus; another window loses it. Asks again when
    /// the window has it already: somebody else may have held it the first time, and Qt's own menus take it
    /// over and let it go when they close.
    void start(QWindow* window);
    /// Gives it back; does nothing when there is nothing to give.
    void stop();

  private:
    QPointer<QWindow> m_window;
    ShortcutsInhibitor m_inhibitor;
    std::optional<DetectableAutoRepeat> m_detectableAutoRepeat; ///< while the keyboard is grabbed
    std::unique_ptr<QAbstractNativeEventFilter> m_focusFilter;  ///< while the keyboard is grabbed
};

} // namespace quorvi
