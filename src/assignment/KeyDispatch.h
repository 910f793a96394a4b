// The place in the host's event dispatch where keys are caught.
#pragma once

#include <QObject>

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/DetectableAutoRepeat.h"
#include "platform/KeyEvents.h"

class QKeyEvent;

namespace quorvi {

/// An application's event filter that offers keys to the patched pane. It stands at the window objects, which
/// every key reaches first and once: a shortcut that is not called off there fires, and the key with it is
/// never pressed.
///
/// While a capture is active the keyboard is the pane's. Only keys that cannot be captured, such as those for
/// the volume, stay the host's. A key belongs to who got its press until it is released: the key that started
/// a capture is not part of it, and the one that ended it is not the host's.
///
/// A key that is pressed while it is held repeats, whether Qt says so or not. For keys that are the pane's it
/// may not say so, until they are released: then the server is asked to repeat presses alone.
class KeyDispatch : public QObject {
  public:
    KeyDispatch();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool takes(const QObject* window, QKeyEvent& event);
    [[nodiscard]] bool takesShortcut(const QKeyEvent& event) const;
    [[nodiscard]] bool takesKey(const QObject* window, const QKeyEvent& event);
    [[nodiscard]] bool isRepetition(const QKeyEvent& event) const;
    [[nodiscard]] bool isTaken(std::uint32_t scanCode) const;
    void take(std::uint32_t scanCode);
    bool release(std::uint32_t scanCode);
    void forgetHeldKeys();
    void forgetKeysReleasedIn(const QObject* window);

    struct HeldKey {
        std::uint32_t scanCode;
        const QObject* window; ///< that its press came to; it may be gone
    };

    KeyEventConverter m_converter;
    std::vector<HeldKey> m_held;        ///< all keys that are held, without modifiers
    std::vector<std::uint32_t> m_taken; ///< scan codes of the keys whose presses the pane has used up
    std::optional<DetectableAutoRepeat> m_detectableAutoRepeat; ///< while a taken key may repeat
};

} // namespace quorvi
