// The place in the host's event dispatch where keys are caught.
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

/// An application's event filter that offers keys to the sink that wants them. It stands at the window
/// objects, which every key reaches first and once: a shortcut that is not called off there fires, and the
/// key with it is never pressed.
///
/// While a capture is active the keyboard is the sink's. Only keys that cannot be captured, such as those for
/// the volume, stay the host's.
class KeyCapture : public QObject {
  public:
    /// Of the sinks the first one that wants keys gets them. The sinks and the modifiers, which go on where
    /// they stand, must outlive this object; the panel's view may go before.
    KeyCapture(QWidget& view, FollowedModifiers& modifiers, std::vector<KeySink*> sinks);
    ~KeyCapture() override;

    /// Stands in front of the host's key dispatch from now on.
    void start();
    /// The host's dispatch is its own again, and the keyboard the desktop's.
    void stop();
    /// A capture is active, whether keys come to this object or not.
    [[nodiscard]] bool isActive() const { return activeSink() != nullptr; }

    /// Follows the event's modifiers, and gives the event to the active sink. False when there is none, and
    /// for a change of modifiers that changes nothing: that is left to the host.
    bool receive(const KeyEvent& event);
    /// Gives the key to the active sink. False when there is none.
    bool receive(const CapturedKey& key);
    /// Takes over the modifiers as they have become while no key was captured.
    void followMissedModifiers(std::uint16_t modifiers);
    /// Takes the keyboard from the desktop exactly while a capture is active in a window of the panel's that
    /// has the focus. To be called when a capture begins or ends.
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
    KeyOwnership m_keys; ///< all keys that are held, without modifiers
    KeyboardGrab m_grab;
};

} // namespace quorvi
