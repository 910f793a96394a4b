// Captures keys in the host's event dispatch.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <cstdint>
#include <vector>

#include "capture/FollowedModifiers.h"
#include "capture/KeyOwnership.h"
#include "capture/KeySink.h"
#include "platform/KeyEvents.h"
#include "platform/KeyboardGrab.h"

class QKeyEvent;

namespace quorvi {

/// An application event filter that offers keys to the sink that wants them. It acts at the window objects,
/// which every key reaches first and once: a shortcut that is not stopped there fires, and its key press is
/// never delivered.
///
/// During a capture all keys go to the sink. Only keys that cannot be captured, such as the volume keys, go
/// to the host.
class KeyCapture : public QObject {
  public:
    /// The first sink that wants keys receives them. The sinks and the modifiers, which keep their state,
    /// must outlive this object; the view need not.
    KeyCapture(QWidget& view, FollowedModifiers& modifiers, std::vector<KeySink*> sinks);
    ~KeyCapture() override;

    /// Filters the host's key events from now on.
    void start();
    /// Stops filtering, and returns the keyboard to the desktop.
    void stop();
    /// Whether a capture is active, even if no keys reach this object.
    [[nodiscard]] bool isActive() const { return activeSink() != nullptr; }

    /// Follows the event's modifiers, and passes the event to the active sink. Returns false, leaving it to
    /// the host, if there is no active sink or a modifier event changes no modifier.
    bool receive(const KeyEvent& event);
    /// Passes the key to the active sink. Returns false if there is none.
    bool receive(const CapturedKey& key);
    /// Applies modifiers that changed while no key was captured.
    void followMissedModifiers(std::uint16_t modifiers);
    /// Grabs the keyboard exactly while a capture is active in a focused window of the panel. Call this when
    /// a capture begins or ends. After a menu the grab begins once the display has told that the focus is
    /// back.
    void updateKeyboardGrab();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] KeySink* activeSink() const;
    bool takes(const QObject* window, QKeyEvent& event);
    [[nodiscard]] bool takesShortcut(const QKeyEvent& event) const;
    bool takesKey(const QObject* window, const QKeyEvent& event);
    bool captures(const ConvertedKey& key, bool isPress, bool wasTaken);
    [[nodiscard]] bool isRepetition(const QKeyEvent& event) const;
    [[nodiscard]] bool isFromBefore(const KeyEvent& release) const;
    void forgetHeldKeys();

    QPointer<QWidget> m_view;
    FollowedModifiers& m_modifiers;
    std::vector<KeySink*> m_sinks;
    bool m_running = false;
    KeyEventConverter m_converter;
    KeyOwnership m_keys; ///< all held keys except modifiers
    KeyboardGrab m_grab;
};

} // namespace quorvi
