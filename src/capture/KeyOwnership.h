// Tracks the owners of held keys.
#pragma once

#include <QObject>

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/DetectableAutoRepeat.h"

namespace quorvi {

/// A key belongs to the receiver of its press until its release: the key that started a capture is not part
/// of it, and the key that ended it does not reach the host.
///
/// A press of a held key is a repeat, even if Qt does not mark it so. For the capture's keys Qt may not mark
/// it, because the server then repeats presses only, until they are released.
///
/// Keys are identified by scan codes. Modifiers do not repeat and need not be passed.
class KeyOwnership {
  public:
    /// Notes that the key is held, and that the window received its press.
    void press(std::uint32_t scanCode, const QObject* window);
    /// Makes the held key the capture's.
    void take(std::uint32_t scanCode);
    /// Notes the key's release. Returns whether it was the capture's.
    bool release(std::uint32_t scanCode);
    /// Call this when a press went to the host: only the last held key repeats.
    void letHostRepeat() { m_detectableAutoRepeat.reset(); }

    [[nodiscard]] bool isHeld(std::uint32_t scanCode) const;
    [[nodiscard]] bool isTaken(std::uint32_t scanCode) const;
    [[nodiscard]] bool areHeld() const { return !m_held.empty(); }

    /// Forgets keys whose presses that window received and that are known to be up.
    void forgetReleasedIn(const QObject* window);
    void forget();

  private:
    struct HeldKey {
        std::uint32_t scanCode;
        const QObject* window; ///< the receiver of its press; may be destroyed
    };

    std::vector<HeldKey> m_held;
    std::vector<std::uint32_t> m_taken;                         ///< the scan codes of the capture's keys
    std::optional<DetectableAutoRepeat> m_detectableAutoRepeat; ///< while a taken key may repeat
};

} // namespace quorvi
