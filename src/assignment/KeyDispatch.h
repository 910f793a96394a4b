// The place in the host's event dispatch where keys are caught.
#pragma once

#include <QObject>

#include <cstdint>
#include <vector>

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
class KeyDispatch : public QObject {
  public:
    KeyDispatch();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] bool takesShortcut(const QKeyEvent& event) const;
    [[nodiscard]] bool takesKey(const QKeyEvent& event);
    [[nodiscard]] bool isTaken(std::uint32_t scanCode) const;
    bool release(std::uint32_t scanCode);

    KeyEventConverter m_converter;
    std::vector<std::uint32_t> m_taken; ///< scan codes of the keys whose presses the pane has used up
};

} // namespace quorvi
