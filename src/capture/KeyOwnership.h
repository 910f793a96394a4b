// Whose the keys are that are held.
#pragma once

#include <QObject>

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/DetectableAutoRepeat.h"

namespace quorvi {

/// A key belongs to who got its press until it is released: the key that started a capture is not part of it,
/// and the one that ended it is not the host's.
///
/// A key that is pressed while it is held repeats, whether Qt says so or not. For keys that are the capture's
/// it may not say so, until they are released: then the server is asked to repeat presses alone.
///
/// Keys go by their scan codes. Modifiers, which do not repeat, need not be told of.
class KeyOwnership {
  public:
    /// The key is held from now on. Its press came to the window.
    void press(std::uint32_t scanCode, const QObject* window);
    /// The key that is held is the capture's.
    void take(std::uint32_t scanCode);
    /// The key is not held any more. Whether it was the capture's.
    bool release(std::uint32_t scanCode);
    /// A press went to the host: of all held keys the last one repeats.
    void letHostRepeat() { m_detectableAutoRepeat.reset(); }

    [[nodiscard]] bool isHeld(std::uint32_t scanCode) const;
    [[nodiscard]] bool isTaken(std::uint32_t scanCode) const;
    [[nodiscard]] bool areHeld() const { return !m_held.empty(); }

    /// Forgets the keys whose presses came to that window and that are known to be up.
    void forgetReleasedIn(const QObject* window);
    void forget();

  private:
    struct HeldKey {
        std::uint32_t scanCode;
        const QObject* window; ///< that its press came to; it may be gone
    };

    std::vector<HeldKey> m_held;
    std::vector<std::uint32_t> m_taken;                         ///< the scan codes of the capture's
    std::optional<DetectableAutoRepeat> m_detectableAutoRepeat; ///< while a taken key may repeat
};

} // namespace quorvi
